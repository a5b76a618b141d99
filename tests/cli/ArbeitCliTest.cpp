// The shared work queue with real workers on a private PostgreSQL server: workers killed at
// random moments, a worker paused past its lease, a server restarted under a worker. The
// oracle of the divisor units is the single-process search of the same range into SQLite.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <random>
#include <regex>
#include <set>
#include <sstream>
#include <thread>

#include "MersenneTabelle.h"
#include "PgServer.h"
#include "ProgrammLauf.h"
#include "db/PgVerbindung.h"

namespace sw::test {
namespace {

using namespace std::chrono_literals;

// A worker in the background, its stdout and stderr in files of the test's folder.
struct Worker {
    pid_t pid = -1;
    std::string aus, fehler;
};

Worker workerStarten(const std::string& ordner, const std::string& url, const std::string& name,
                     const std::string& lease) {
    static int nummer = 0;
    Worker w;
    w.aus = ordner + "/worker" + std::to_string(++nummer) + ".out";
    w.fehler = w.aus + ".err";
    const std::vector<std::string> argumente{SW_CLI_PFAD, "worker", "--db", url, "--name", name, "--lease", lease};
    std::vector<char*> argv;
    for (const std::string& a : argumente) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    w.pid = fork();
    if (w.pid == 0) {
        dup2(open(w.aus.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), 1);
        dup2(open(w.fehler.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), 2);
        execv(SW_CLI_PFAD, argv.data());
        _exit(127);
    }
    return w;
}

// The wait status, or a failure and a kill when the worker does not end in time.
int workerWarten(const Worker& w, std::chrono::seconds frist = 30s) {
    const auto ende = std::chrono::steady_clock::now() + frist;
    int status = 0;
    while (waitpid(w.pid, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > ende) {
            ADD_FAILURE() << "worker " << w.pid << " did not end";
            kill(w.pid, SIGKILL);
            waitpid(w.pid, &status, 0);
            return status;
        }
        std::this_thread::sleep_for(20ms);
    }
    return status;
}

std::string dateiText(const std::string& pfad) {
    std::ifstream f(pfad);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
}

// t_Prim as the SQLite reader gives it, for comparison with the single-process search.
Tabelle pgTabelle(PgVerbindung& v) {
    Tabelle t;
    const PgErgebnis r = v.Ausfuehren("SELECT Primzahl, Mersenne, Teiler, TeilerPot, FaktorS FROM t_Prim");
    for (int i = 0; i < r.Zeilen(); ++i) {
        t[r.Zahl(i, 0)] = Zeile{int(r.Zahl(i, 1)), r.IstNull(i, 2) ? "<null>" : r.Text(i, 2),
                                r.IstNull(i, 4) ? "<null>" : r.Text(i, 4), r.Zahl(i, 3)};
    }
    return t;
}

// The divisor search of [von, bis] to k by one uninterrupted sw-cli into SQLite.
Tabelle einzelLauf(const std::string& ordner, int von, int bis, int k) {
    const Lauf l = ProgrammStarten(SW_CLI_PFAD, ordner,
                                   "divisors --from " + std::to_string(von) + " --to " + std::to_string(bis) +
                                       " --k " + std::to_string(k) + " --db " + ordner + "/einzeln");
    EXPECT_EQ(l.code, 0) << l.fehler;
    return lesen(ordner + "/einzeln/Prim.db");
}

// The units each worker reported done, over all output files: none may appear twice.
std::multiset<int> fertigeEinheiten(const std::vector<Worker>& alle) {
    static const std::regex zeile(R"(: unit (\d+) \S+ [^:]*: \d+ exponents)");
    std::multiset<int> ids;
    for (const Worker& w : alle) {
        const std::string text = dateiText(w.aus);
        for (std::sregex_iterator i(text.begin(), text.end(), zeile), e; i != e; ++i) ids.insert(std::stoi((*i)[1]));
    }
    return ids;
}

class ArbeitTest : public PgTest {
protected:
    Lauf cli(const std::string& argumente) { return ProgrammStarten(SW_CLI_PFAD, Ordner(), argumente); }

    // A queue of divisor units worked by `parallel` workers, `kills` of them killed at random
    // moments and replaced. The end must be the single-process search's table, with two rows
    // that were further along beforehand left as they were.
    void Abschuesse(int von, int bis, int k, int einheit, int parallel, int kills) {
        const Tabelle einzeln = einzelLauf(Ordner(), von, bis, k);
        ASSERT_GT(einzeln.size(), 500u);
        PgVerbindung v(url);
        ASSERT_EQ(cli("work add divisors " + std::to_string(von) + " " + std::to_string(bis) + " --kziel " +
                      std::to_string(k) + " --unit " + std::to_string(einheit) + " --db '" + url + "'")
                      .code,
                  0);
        // Rows searched further by an earlier job (no divisor below k): their limits must stay.
        Tabelle erwartet = einzeln;
        int gesetzt = 0;
        for (auto& [p, z] : erwartet) {
            if (z.mersenne != 0 || gesetzt == 2 || p % 3 != 1) continue;
            z.pot = 4LL * k;
            v.Ausfuehren("INSERT INTO t_Prim (Primzahl, Mersenne, Teiler, TeilerPot) VALUES ($1, 0, '0', $2)",
                         {static_cast<long long>(p), static_cast<long long>(z.pot)});
            ++gesetzt;
        }
        std::mt19937 zufall(12345);
        std::vector<Worker> alle, laufend;
        int nummer = 0;
        for (int i = 0; i < parallel; ++i)
            laufend.push_back(workerStarten(Ordner(), url, "w" + std::to_string(++nummer), "0.5"));
        alle = laufend;
        for (int i = 0; i < kills; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution<int>(50, 250)(zufall)));
            const size_t opfer = std::uniform_int_distribution<size_t>(0, laufend.size() - 1)(zufall);
            kill(laufend[opfer].pid, SIGKILL);
            waitpid(laufend[opfer].pid, nullptr, 0);
            laufend[opfer] = workerStarten(Ordner(), url, "w" + std::to_string(++nummer), "0.5");
            alle.push_back(laufend[opfer]);
        }
        for (const Worker& w : laufend) {
            const int status = workerWarten(w);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << dateiText(w.fehler);
        }
        EXPECT_EQ(v.Ausfuehren("SELECT count(*) FROM t_Arbeit WHERE state <> 'done'").Zahl(0, 0), 0);
        const std::multiset<int> ids = fertigeEinheiten(alle);
        for (int id : ids) EXPECT_EQ(ids.count(id), 1u) << "unit " << id << " was closed twice";
        EXPECT_EQ(pgTabelle(v), erwartet);
    }
};

TEST_F(ArbeitTest, GetoeteteWorkerHinterlassenDasErgebnisDesEinzelLaufs) {
    Abschuesse(20000, 26000, 20000, 500, 3, 4);
}

TEST_F(ArbeitTest, VieleAbschuesseBeiVierWorkern) {
    // Twenty kills and restarts take about 35 s; the three-worker test above runs every time.
    if (std::getenv("SW_LANGE_TESTS") == nullptr) GTEST_SKIP() << "SW_LANGE_TESTS=1 runs it";
    Abschuesse(100000, 160000, 60000, 2000, 4, 20);
}

// A worker paused past its lease loses the unit to another and, woken again, writes nothing.
TEST_F(ArbeitTest, AngehaltenerWorkerVerliertSeineEinheit) {
    const Tabelle einzeln = einzelLauf(Ordner(), 40000, 41000, 150000);
    PgVerbindung v(url);
    ASSERT_EQ(cli("work add divisors 40000 41000 --kziel 150000 --unit 1001 --db '" + url + "'").code, 0);
    v.Skript(
        "CREATE TABLE t_Schreiber (n integer);"
        "CREATE FUNCTION zaehlen() RETURNS trigger LANGUAGE plpgsql AS "
        "$$ BEGIN INSERT INTO t_Schreiber VALUES (1); RETURN NEW; END $$;"
        "CREATE TRIGGER zaehlen AFTER INSERT OR UPDATE ON t_Prim FOR EACH ROW EXECUTE FUNCTION zaehlen();");
    const Worker a = workerStarten(Ordner(), url, "A", "0.4");
    for (int i = 0; i < 200 && v.Ausfuehren("SELECT worker FROM t_Arbeit").Text(0, 0) != "A"; ++i)
        std::this_thread::sleep_for(10ms);
    kill(a.pid, SIGSTOP);
    std::this_thread::sleep_for(600ms);
    const Worker b = workerStarten(Ordner(), url, "B", "0.4");
    EXPECT_EQ(WEXITSTATUS(workerWarten(b)), 0) << dateiText(b.fehler);
    const int64_t schreibenVorher = v.Ausfuehren("SELECT count(*) FROM t_Schreiber").Zahl(0, 0);
    kill(a.pid, SIGCONT);
    EXPECT_EQ(WEXITSTATUS(workerWarten(a)), 0) << dateiText(a.fehler);
    EXPECT_EQ(v.Ausfuehren("SELECT count(*) FROM t_Schreiber").Zahl(0, 0), schreibenVorher);
    const PgErgebnis einheit = v.Ausfuehren("SELECT state, worker, attempts FROM t_Arbeit");
    EXPECT_EQ(einheit.Text(0, 0), "done");
    EXPECT_EQ(einheit.Text(0, 1), "B");
    EXPECT_EQ(einheit.Zahl(0, 2), 2);
    EXPECT_NE(dateiText(a.aus).find("lease lost"), std::string::npos) << dateiText(a.aus);
    EXPECT_EQ(pgTabelle(v), einzeln);
}

// The server goes away under a worker and comes back: the worker waits, connects again and
// finishes the queue. Every prime exponent of the range ends with a row: searched to k, or
// with a divisor that GMP confirms.
TEST_F(ArbeitTest, WorkerUeberstehtNeustartDesServers) {
    PgVerbindung v(url);
    ASSERT_EQ(cli("work add divisors 50000 53000 --kziel 60000 --unit 250 --db '" + url + "'").code, 0);
    const Worker w = workerStarten(Ordner(), url, "W", "5");
    for (int i = 0; i < 300 && v.Ausfuehren("SELECT count(*) FROM t_Arbeit WHERE state = 'done'").Zahl(0, 0) == 0; ++i)
        std::this_thread::sleep_for(10ms);
    PgServer::Gemeinsam()->Anhalten();
    std::this_thread::sleep_for(300ms);
    PgServer::Gemeinsam()->Starten();
    const int status = workerWarten(w);
    const std::string fehler = dateiText(w.fehler);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << fehler;
    EXPECT_NE(fehler.find("connection lost"), std::string::npos) << fehler;
    EXPECT_NE(fehler.find("connected again"), std::string::npos) << fehler;
    PgVerbindung neu(url);
    EXPECT_EQ(neu.Ausfuehren("SELECT count(*) FROM t_Arbeit WHERE state <> 'done'").Zahl(0, 0), 0);
    const Tabelle t = pgTabelle(neu);
    mpz_t n;
    mpz_init(n);
    size_t primzahlen = 0;
    for (long p = 50000; p <= 53000; ++p) {
        mpz_set_si(n, p);
        if (mpz_probab_prime_p(n, 30) == 0) continue;
        ++primzahlen;
        const auto z = t.find(p);
        ASSERT_NE(z, t.end()) << p;
        EXPECT_EQ(z->second.pot, 60000) << p;
        if (z->second.mersenne == 2) {
            EXPECT_TRUE(teilt(p, z->second.teiler)) << p;
        }
    }
    mpz_clear(n);
    EXPECT_EQ(t.size(), primzahlen);
}

// Lucas-Lehmer and Collatz units against what is known of them and a plain count.
TEST_F(ArbeitTest, LucasUndCollatzEinheiten) {
    ASSERT_EQ(cli("work add lucas 89 97 107 --db '" + url + "'").code, 0);
    ASSERT_EQ(cli("work add collatz 1 100000 --unit 30000 --db '" + url + "'").code, 0);
    const Lauf l = cli("worker --name L --db '" + url + "'");
    ASSERT_EQ(l.code, 0) << l.fehler;
    PgVerbindung v(url);
    const PgErgebnis lucas =
        v.Ausfuehren("SELECT lo::text, found, result FROM t_Arbeit WHERE kind = 'lucas' ORDER BY id");
    ASSERT_EQ(lucas.Zeilen(), 3);
    EXPECT_EQ(lucas.Zahl(0, 1) * 100 + lucas.Zahl(1, 1) * 10 + lucas.Zahl(2, 1), 101);  // 89, 107 prime
    EXPECT_EQ(v.Ausfuehren("SELECT string_agg(Primzahl::text, ' ' ORDER BY Primzahl) FROM t_Prim WHERE Mersenne = 1")
                  .Text(0, 0),
              "89 107");
    uint64_t schritte = 0, mult = 0, laengste = 0, laengsteStart = 0;
    for (uint64_t n = 1; n <= 100000; ++n) {
        uint64_t s = 0;
        for (uint64_t x = n; x != 1; ++s) {
            if (x % 2) {
                x = 3 * x + 1;
                ++mult;
            } else {
                x /= 2;
            }
        }
        schritte += s;
        if (s > laengste) laengste = s, laengsteStart = n;
    }
    const PgErgebnis c = v.Ausfuehren(
        "SELECT sum(starts)::text, sum(steps)::text, sum(mult)::text, count(*) FROM t_CollatzZahl");
    EXPECT_EQ(c.Text(0, 0), "100000");
    EXPECT_EQ(c.Text(0, 1), std::to_string(schritte));
    EXPECT_EQ(c.Text(0, 2), std::to_string(mult));
    EXPECT_EQ(c.Zahl(0, 3), 4);
    EXPECT_EQ(v.Ausfuehren("SELECT longest, longest_start::text FROM t_CollatzZahl ORDER BY longest DESC, unit LIMIT 1")
                  .Text(0, 1),
              std::to_string(laengsteStart));
    const Lauf s = cli("work status --json --db '" + url + "'");
    EXPECT_NE(s.aus.find("\"open\":0,\"claimed\":0,\"done\":7"), std::string::npos) << s.aus;
}

// What a user can get wrong is refused with a message that names it, and no password shows.
TEST_F(ArbeitTest, FalscheEingabenUndKeinPasswort) {
    const std::string mitPasswort = PgServer::Gemeinsam()->Url("postgres", "geheim123");
    const struct {
        std::string argumente, meldung;
    } faelle[] = {
        {"work add divisors 500 100 --kziel 10 --db '" + url + "'", "FROM must not exceed TO"},
        {"work add divisors 100 500 --db '" + url + "'", "--kziel is required"},
        {"work add divisors 1 500 --kziel 10 --db '" + url + "'", "FROM must lie between 2 and"},
        {"work add lucas 91 --db '" + url + "'", "91 is not prime"},
        {"work add primes 1 10 --db '" + url + "'", "divisors, lucas or collatz, not primes"},
        {"work add collatz 0 10 --db '" + url + "'", "FROM must lie between 1 and"},
        {"work status --db " + Ordner(), "must be a postgresql:// address"},
        {"worker --lease 0 --db '" + url + "'", "--lease must be at least"},
        {"work status --db '" + mitPasswort + "'", ""},
    };
    for (const auto& f : faelle) {
        const Lauf l = cli(f.argumente);
        EXPECT_EQ(l.code, 1) << f.argumente;
        EXPECT_NE(l.fehler.find(f.meldung), std::string::npos) << f.argumente << ": " << l.fehler;
        EXPECT_EQ((l.aus + l.fehler).find("geheim123"), std::string::npos) << l.fehler;
    }
}

}  // namespace
}  // namespace sw::test
