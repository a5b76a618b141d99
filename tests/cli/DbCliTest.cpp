// sw-cli db: an import, the row it leaves as show prints it, the counts of stats, a merge of a
// second folder, and the refusals (a damaged line named by its number, a missing folder); the
// copy of a folder to a PostgreSQL server and back.
#include <filesystem>
#include <fstream>

#include "CliBasis.h"
#include "PgServer.h"

namespace sw::test {
namespace {

class DbCli : public CliBasis {};

TEST_F(DbCli, ImportShowStatsMerge) {
    std::filesystem::create_directories(Ordner() + "/zwei");
    std::ofstream(Ordner() + "/liste.txt") << "11,23\n47, 2351\n";
    std::ofstream(Ordner() + "/mehr.txt") << "11,89\n73,439\n";
    Lauf l = Starten("db import " + Ordner() + "/liste.txt --json");
    EXPECT_EQ(l.aus, "{\"new\":2,\"added\":0,\"known\":0,\"skipped\":0}\n") << l.fehler;
    l = Starten("db show 47 --json");
    EXPECT_EQ(l.aus.substr(0, l.aus.find(",\"timestamp\"")),
              "{\"exponent\":47,\"entry\":true,\"status\":2,\"divisors\":\"2351\",\"limit\":2000000000,"
              "\"limit_stored\":2000000000,\"k\":\"25\"");
    EXPECT_EQ(Starten("db --db " + Ordner() + "/zwei import " + Ordner() + "/mehr.txt").code, 0);
    l = Starten("db merge " + Ordner() + "/zwei --json");
    EXPECT_EQ(l.aus, "{\"files\":1,\"rows\":2,\"new_rows\":1,\"new_divisors\":2,\"raised_limits\":0,"
                     "\"changed_status\":1,\"false_divisors\":0}\n") << l.fehler;
    l = Starten("db stats 2 100");
    EXPECT_EQ(l.aus, "2..100: 3 rows, 3 settled (3 with a divisor, 0 Mersenne primes)\n");
    l = Starten("db show 13");
    EXPECT_NE(l.aus.find("13: no entry"), std::string::npos);

    std::ofstream(Ordner() + "/kaputt.txt") << "37,223\n\n29,23300\n";
    Abgelehnt("db import " + Ordner() + "/kaputt.txt", "Zeile 3");
    EXPECT_NE(Starten("db show 37").aus.find("223"), std::string::npos);  // what came before stays
    Abgelehnt("db --db " + Ordner() + "/fehlt show 13", "fehlt");
    Abgelehnt("db show 2000000001", "2..2000000000");
}

// A folder copied to the server and from there into a second folder reads the same everywhere;
// a wrong password is refused in one line that does not repeat it.
TEST_F(DbCli, UeberDenServerUndZurueck) {
    PgServer* server = PgServer::Gemeinsam();
    if (server == nullptr) GTEST_SKIP() << PgServer::FehltGrund();
    const std::string url = server->NeueDatenbank();
    std::ofstream(Ordner() + "/liste.txt") << "11,23\n47, 2351\n200000051,75600019279\n";
    const Lauf import = Starten("db import " + Ordner() + "/liste.txt");
    ASSERT_EQ(import.code, 0) << import.fehler;
    Lauf l = Starten("db export --to '" + url + "' --json");
    EXPECT_EQ(l.aus.substr(0, 11), "{\"rows\":3,\"") << l.fehler;
    EXPECT_EQ(l.aus.find(PgServer::Passwort()), std::string::npos) << l.aus;
    l = Starten("db import --from '" + url + "' --db " + Ordner() + "/zwei");
    EXPECT_EQ(l.code, 1) << "a folder that does not exist is no database to import into";
    std::filesystem::create_directories(Ordner() + "/zwei");
    l = Starten("db import --from '" + url + "' --db " + Ordner() + "/zwei --json");
    EXPECT_EQ(l.aus.substr(0, 11), "{\"rows\":3,\"") << l.fehler;
    const std::string stats = Starten("db stats 2 2000000000").aus;
    EXPECT_EQ(stats, "2..2000000000: 3 rows, 3 settled (3 with a divisor, 0 Mersenne primes)\n");
    EXPECT_EQ(Starten("db --db '" + url + "' stats 2 2000000000").aus, stats);
    EXPECT_EQ(Starten("db --db " + Ordner() + "/zwei stats 2 2000000000").aus, stats);
    EXPECT_NE(Starten("db --db '" + url + "' show 200000051 --json").aus.find("\"k\":\"189\""), std::string::npos);

    std::string falsch = url;
    falsch.replace(falsch.find(PgServer::Passwort()), std::string(PgServer::Passwort()).size(), "Falsch-4711");
    Abgelehnt("db --db '" + falsch + "' stats 2 100", "password authentication failed");
    EXPECT_EQ(Starten("db --db '" + falsch + "' stats 2 100").fehler.find("Falsch-4711"), std::string::npos);
    Abgelehnt("db export --to '" + url + "' --db '" + url + "'", "is the database itself");
}

}  // namespace
}  // namespace sw::test
