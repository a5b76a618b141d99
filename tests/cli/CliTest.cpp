// sw-cli from the outside: answers, the --json shape, and for bad input one line on stderr
// that begins with "sw-cli: " and exit code 1.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "TestUmgebung.h"

namespace sw::test {
namespace {

struct Lauf {
    int code = -1;
    std::string aus;
    std::string fehler;
};

class Cli : public SwTest {
protected:
    Lauf Starten(const std::string& argumente) {
        const std::string fehlerDatei = Ordner() + "stderr.txt";
        const std::string befehl = "SW_HOME='" + Ordner() + "' '" SW_CLI_PFAD "' " + argumente + " 2>'" + fehlerDatei + "'";
        Lauf lauf;
        FILE* rohr = ::popen(befehl.c_str(), "r");
        if (!rohr) return lauf;
        char puffer[4096];
        size_t n;
        while ((n = std::fread(puffer, 1, sizeof puffer, rohr)) > 0) lauf.aus.append(puffer, n);
        const int status = ::pclose(rohr);
        lauf.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        std::ifstream ein(fehlerDatei);
        std::stringstream s;
        s << ein.rdbuf();
        lauf.fehler = s.str();
        return lauf;
    }
    // Bad input: exit 1, nothing on stdout, exactly one line "sw-cli: ..." on stderr.
    void Abgelehnt(const std::string& argumente, const std::string& enthaelt = "") {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 1) << argumente;
        EXPECT_EQ(l.aus, "") << argumente;
        EXPECT_EQ(l.fehler.rfind("sw-cli: ", 0), 0u) << argumente << ": " << l.fehler;
        EXPECT_EQ(std::count(l.fehler.begin(), l.fehler.end(), '\n'), 1) << argumente << ": " << l.fehler;
        EXPECT_NE(l.fehler.find(enthaelt), std::string::npos) << argumente << ": " << l.fehler;
    }
};

TEST_F(Cli, Antworten) {
    EXPECT_EQ(Starten("count 2 1000000").aus, "78498\n");
    EXPECT_EQ(Starten("count 0 1").aus, "0\n");
    EXPECT_EQ(Starten("primes 0 30").aus, "2\n3\n5\n7\n11\n13\n17\n19\n23\n29\n");
    EXPECT_EQ(Starten("primes 1000000 1000100").aus, "1000003\n1000033\n1000037\n1000039\n1000081\n1000099\n");
    EXPECT_EQ(Starten("next 1e9").aus, "1000000007\n");
    EXPECT_EQ(Starten("next 0").aus, "2\n");
    EXPECT_EQ(Starten("prev 1.000.000.000").aus, "999999937\n");
    EXPECT_EQ(Starten("prev 2").aus, "none\n");
    EXPECT_EQ(Starten("isprime 1000000007").aus, "prime\n");
    EXPECT_EQ(Starten("isprime 1").aus, "composite\n");
    EXPECT_EQ(Starten("isprime 999999999999999989").aus, "prime\n");
    EXPECT_EQ(Starten("factor 600851475143").aus, "600851475143 = 71x839x1471x6857\n");
    EXPECT_EQ(Starten("factor 1").aus, "1 = 1\n");
    EXPECT_EQ(Starten("next 20 --limit 1000").aus, "23\n");
}

TEST_F(Cli, SiebUndJson) {
    const Lauf s = Starten("sieve 2e6 --method 5 --json");
    EXPECT_EQ(s.code, 0);
    EXPECT_EQ(s.aus.rfind("{\"limit\":2000000,\"primes\":148933,\"square\":4000000000000,\"method\":5,"
                          "\"method_name\":\"SiebRestklassen\",\"seconds\":", 0), 0u) << s.aus;
    EXPECT_EQ(s.aus.back(), '\n');
    EXPECT_EQ(std::count(s.aus.begin(), s.aus.end(), '\n'), 1);

    const Lauf t = Starten("sieve 2.000.000");
    EXPECT_NE(t.aus.find("primes:  148933\n"), std::string::npos) << t.aus;
    EXPECT_NE(t.aus.find("SiebProdukt"), std::string::npos);

    EXPECT_EQ(Starten("count 10 100 --json").aus, "{\"from\":10,\"to\":100,\"count\":21,\"limit\":1000}\n");
    EXPECT_EQ(Starten("primes 0 10 --json").aus, "{\"from\":0,\"to\":10,\"limit\":1000,\"primes\":[2,3,5,7],\"count\":4}\n");
    EXPECT_EQ(Starten("prev 2 --json").aus, "{\"n\":2,\"prev\":null,\"limit\":1000}\n");
    EXPECT_EQ(Starten("isprime 97 --json").aus, "{\"n\":97,\"prime\":true,\"limit\":1000}\n");
    EXPECT_EQ(Starten("factor 84 --json").aus, "{\"n\":84,\"text\":\"2x2x3x7\",\"factors\":[2,2,3,7],\"limit\":1000}\n");
}

// A block saved by one command serves the next; a raster too small for a question is refused.
TEST_F(Cli, BlockDateien) {
    ASSERT_EQ(Starten("sieve 1e6 --save '" + Ordner() + "P061.BLK'").code, 0);
    EXPECT_EQ(Starten("count 2 1e6 --block '" + Ordner() + "P061.BLK'").aus, "78498\n");
    const Lauf m3 = Starten("sieve 1e6 --method 3 --json");
    EXPECT_NE(m3.aus.find("\"primes\":78498"), std::string::npos) << m3.aus;
    Abgelehnt("count 2 2e6 --block '" + Ordner() + "P061.BLK'", "beyond");
    Abgelehnt("isprime 1000000000039 --block '" + Ordner() + "P061.BLK'", "beyond");
    Abgelehnt("factor 1000000000039 --limit 1000", "cannot prove");
    Abgelehnt("next 999983 --limit 1e6", "no prime above");

    std::ofstream(Ordner() + "ungerade.BLK") << "12345";
    Abgelehnt("count 2 100 --block '" + Ordner() + "ungerade.BLK'", "ungerade.BLK");
    Abgelehnt("count 2 100 --block '" + Ordner() + "fehlt.BLK'", "fehlt.BLK");
    Abgelehnt("sieve 1e6 --save '" + Ordner() + "kein/ordner.BLK'", "ordner.BLK");
}

TEST_F(Cli, FalscheEingaben) {
    Abgelehnt("count x 10", "not a whole");
    Abgelehnt("count 10 1", "greater than");
    Abgelehnt("primes 10 1", "greater than");
    Abgelehnt("isprime -7", "");
    Abgelehnt("isprime 2.5", "");
    Abgelehnt("isprime 1.5e0", "whole number");
    Abgelehnt("isprime 1e40", "too large");
    Abgelehnt("factor 0", "no prime factorisation");
    Abgelehnt("sieve 999", "1.000");
    Abgelehnt("sieve 3e9 --method 1", "2.000.000.000");
    Abgelehnt("sieve 1e12 --method 0", "");   // word indices beyond 32 bits
    Abgelehnt("sieve 1e6 --method 7", "");
    Abgelehnt("count 2 10 --limit 999", "1.000");
    Abgelehnt("count 2 10 --limit 1e6 --block x", "exclude");
    Abgelehnt("frobnicate", "");
    Abgelehnt("next 1e30", "too large");

    const Lauf hilfe = Starten("--help");
    EXPECT_EQ(hilfe.code, 0);
    EXPECT_NE(hilfe.aus.find("sieve"), std::string::npos);
    const Lauf version = Starten("--version");
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.aus.rfind("sw-cli ", 0), 0u);
}

}  // namespace
}  // namespace sw::test
