#include "PgServer.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "db/PgVerbindung.h"

namespace sw::test {

namespace fs = std::filesystem;

namespace {

// The folder of initdb/pg_ctl: Debian's versioned folder first, then PATH.
std::string ServerProgramme() {
    if (fs::exists("/usr/lib/postgresql/15/bin/pg_ctl")) return "/usr/lib/postgresql/15/bin/";
    const char* pfad = std::getenv("PATH");
    std::stringstream s(pfad != nullptr ? pfad : "");
    for (std::string teil; std::getline(s, teil, ':');)
        if (!teil.empty() && fs::exists(fs::path(teil) / "pg_ctl") && fs::exists(fs::path(teil) / "initdb"))
            return teil + "/";
    return "";
}

bool AlsRoot() { return ::geteuid() == 0; }

// Runs a command of the server programs, as postgres when we are root; its output goes to a
// log in the folder and becomes the message when it fails.
void Befehl(const std::string& befehl, const std::string& log) {
    std::string zeile = (AlsRoot() ? "runuser -u postgres -- " : "") + befehl + " >'" + log + "' 2>&1";
    if (std::system(zeile.c_str()) == 0) return;
    std::ifstream f(log);
    std::stringstream inhalt;
    inhalt << f.rdbuf();
    throw std::runtime_error("PostgreSQL-Testserver: " + befehl + " scheiterte:\n" + inhalt.str());
}

void AnPostgres(const std::string& pfad) {
    if (AlsRoot() && std::system(("chown -R postgres: '" + pfad + "'").c_str()) != 0)
        throw std::runtime_error("PostgreSQL-Testserver: chown postgres " + pfad + " scheiterte");
}

// The cluster's files are written and copied for every test program: in memory (/dev/shm)
// that takes a tenth of a second, on a busy disk several seconds.
fs::path Basis() {
    return ::access("/dev/shm", W_OK) == 0 ? fs::path("/dev/shm") : fs::temp_directory_path();
}

std::string NeuerOrdner(const std::string& muster) {
    std::string pfad = (Basis() / muster).string();
    if (::mkdtemp(pfad.data()) == nullptr) throw std::runtime_error("mkdtemp " + pfad);
    return pfad;
}

// The template cluster, built by initdb once per user. It is built beside and renamed into
// place, so that test programs running in parallel never see half of one.
std::string Vorlage(const std::string& bin) {
    std::string vorlage = (Basis() / ("sw-pg-vorlage-15-" + std::to_string(::geteuid()))).string();
    if (fs::exists(vorlage + "/PG_VERSION")) return vorlage;
    std::string bau = NeuerOrdner("sw-pg-bau-XXXXXX");
    {
        std::ofstream(bau + "/pw") << PgServer::Passwort() << "\n";
    }
    AnPostgres(bau);
    Befehl("'" + bin + "initdb' -D '" + bau + "/daten' -U sw --pwfile='" + bau +
               "/pw' --auth=scram-sha-256 --no-sync --wal-segsize=1 -E UTF8 --locale=C",
           bau + "/initdb.log");
    std::error_code ec;
    fs::rename(bau + "/daten", vorlage, ec);   // a parallel program may have been first: fine
    fs::remove_all(bau, ec);
    if (!fs::exists(vorlage + "/PG_VERSION")) throw std::runtime_error("PostgreSQL-Testserver: keine Vorlage " + vorlage);
    return vorlage;
}

// A port nobody listens on. The server uses only its private socket, but a free number keeps
// its lock file and its URL unambiguous should the socket folder ever be shared.
int FreierPort() {
    int s = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t laenge = sizeof a;
    int port = 55432;
    if (s >= 0 && ::bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0 &&
        ::getsockname(s, reinterpret_cast<sockaddr*>(&a), &laenge) == 0)
        port = ntohs(a.sin_port);
    if (s >= 0) ::close(s);
    return port;
}

}  // namespace

const char* PgServer::Passwort() { return "sw-test-geheim"; }

std::string PgServer::FehltGrund() {
    if (ServerProgramme().empty())
        return "PostgreSQL-Serverprogramme (initdb, pg_ctl) nicht gefunden: weder /usr/lib/postgresql/15/bin noch PATH";
    return "";
}

PgServer* PgServer::Gemeinsam() {
    static std::unique_ptr<PgServer> server;
    if (server == nullptr && FehltGrund().empty()) server.reset(new PgServer());
    return server.get();
}

PgServer::PgServer() {
    std::string bin = ServerProgramme();
    std::string vorlage = Vorlage(bin);
    ordner_ = NeuerOrdner("sw-pg-XXXXXX");
    if (std::system(("cp -a '" + vorlage + "' '" + ordner_ + "/daten'").c_str()) != 0)
        throw std::runtime_error("PostgreSQL-Testserver: Kopie der Vorlage scheiterte");
    AnPostgres(ordner_);
    port_ = FreierPort();
    Starten();
}

PgServer::~PgServer() {
    try {
        if (laeuft_) Anhalten();
    } catch (const std::exception&) {
        // The folder goes anyway; a server left behind stops itself when its lock file is gone.
    }
    std::error_code ec;
    fs::remove_all(ordner_, ec);
}

void PgServer::Starten() {
    std::string optionen = "-c listen_addresses='' -c unix_socket_directories=" + ordner_ + " -p " +
                           std::to_string(port_) + " -c fsync=off -c full_page_writes=off";
    Befehl("'" + ServerProgramme() + "pg_ctl' -D '" + ordner_ + "/daten' -l '" + ordner_ + "/server.log' -w -o \"" +
               optionen + "\" start",
           ordner_ + "/pg_ctl.log");
    laeuft_ = true;
}

void PgServer::Anhalten() {
    laeuft_ = false;
    Befehl("'" + ServerProgramme() + "pg_ctl' -D '" + ordner_ + "/daten' -m immediate -w stop", ordner_ + "/pg_ctl.log");
}

std::string PgServer::Url(const std::string& datenbank, const std::string& passwort) const {
    return "postgresql://sw:" + passwort + "@/" + datenbank + "?host=" + ordner_ + "&port=" + std::to_string(port_);
}

std::string PgServer::Url(const std::string& datenbank) const { return Url(datenbank, Passwort()); }

std::string PgServer::NeueDatenbank() {
    std::string name = "test" + std::to_string(++naechsteDb_);
    PgVerbindung v(Url("postgres"));
    // FILE_COPY: the default copies template1 through the WAL, three times slower.
    v.Ausfuehren("CREATE DATABASE " + name + " STRATEGY = FILE_COPY");
    return Url(name);
}

void PgTest::SetUp() {
    SwTest::SetUp();
    PgServer* server = PgServer::Gemeinsam();
    // Without the PostgreSQL server binaries there is no real server to test against, and a
    // mocked one would prove nothing; the reason names what is missing.
    if (server == nullptr) GTEST_SKIP() << PgServer::FehltGrund();
    url = server->NeueDatenbank();
}

}  // namespace sw::test
