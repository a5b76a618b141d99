// sw-cli from the outside: answers, the --json shape, and for bad input one line on stderr
// that begins with "sw-cli: " and exit code 1. Beyond the primary raster the counts, lists
// and twin pairs come from the secondary sieve; their values are those primesieve gives.
#include <gtest/gtest.h>

#include <fstream>
#include <utility>
#include <vector>

#include "CliBasis.h"

namespace sw::test {
namespace {

using Cli = CliBasis;

// Questions and the exact text sw-cli prints for them, readable and as JSON.
TEST_F(Cli, Antworten) {
    const std::vector<std::pair<std::string, std::string>> faelle = {
        {"count 2 1000000", "78498\n"},
        {"count 0 1", "0\n"},
        {"primes 0 30", "2\n3\n5\n7\n11\n13\n17\n19\n23\n29\n"},
        {"primes 1000000 1000100", "1000003\n1000033\n1000037\n1000039\n1000081\n1000099\n"},
        {"next 1e9", "1000000007\n"},
        {"next 0", "2\n"},
        {"next 20 --limit 1000", "23\n"},
        {"prev 1.000.000.000", "999999937\n"},
        {"prev 2", "none\n"},
        {"isprime 1000000007", "prime\n"},
        {"isprime 1", "neither prime nor composite\n"},
        {"isprime 0", "neither prime nor composite\n"},
        {"isprime 999999999999999989", "prime\n"},
        {"count 10 100 --json", "{\"from\":10,\"to\":100,\"count\":21,\"limit\":1000}\n"},
        {"primes 0 10 --json", "{\"from\":0,\"to\":10,\"limit\":1000,\"primes\":[2,3,5,7],\"count\":4}\n"},
        {"prev 2 --json", "{\"n\":2,\"prev\":null,\"proven\":true,\"limit\":1000}\n"},
        {"isprime 97 --json", "{\"n\":97,\"prime\":true,\"proven\":true,\"limit\":1000}\n"},
        // Beyond the primary raster: 2^32 .. 2^32 + 10^6, and just above GrenzeLong, where
        // the windows take over.
        {"count 4294967296 4295967296", "45038\n"},
        {"count 2000000000 2000001000", "52\n"},
        {"count 2000000000 2000001001", "53\n"},
        {"primes 1e15 1000000000000300",
         "1000000000000037\n1000000000000091\n1000000000000159\n1000000000000187\n1000000000000223\n"
         "1000000000000241\n1000000000000249\n1000000000000259\n1000000000000273\n1000000000000279\n"
         "1000000000000297\n"},
        {"count 1e15 1000000000000300 --json",
         "{\"from\":1000000000000000,\"to\":1000000000000300,\"count\":11,\"limit\":31622776}\n"},
        // Twin pairs from the primary raster; a pair whose second prime lies beyond TO is not listed.
        {"twins 0 20", "3 5\n5 7\n11 13\n17 19\n"},
        {"twins 1000 1092", "1019 1021\n1031 1033\n1049 1051\n1061 1063\n"},
        {"twins 1000 1100 --json",
         "{\"from\":1000,\"to\":1100,\"limit\":1100,\"twins\":[[1019,1021],[1031,1033],[1049,1051],[1061,1063],"
         "[1091,1093]],\"count\":5}\n"},
    };
    for (const auto& [argumente, erwartet] : faelle) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 0) << argumente;
        EXPECT_EQ(l.aus, erwartet) << argumente;
        EXPECT_EQ(l.fehler, "") << argumente;
    }
    // primesieve: 20 pairs from 10^12 to 10^12 + 10^4, through the secondary sieve.
    const std::string paare = Starten("twins 1e12 1000000010000").aus;
    EXPECT_EQ(std::count(paare.begin(), paare.end(), '\n'), 20);
    EXPECT_EQ(paare.substr(0, paare.find('\n')), "1000000000061 1000000000063");
}

TEST_F(Cli, Sieb) {
    const Lauf s = Starten("sieve 2e6 --method 5 --json");
    EXPECT_EQ(s.code, 0);
    EXPECT_EQ(s.aus.rfind("{\"limit\":2000000,\"primes\":148933,\"square\":4000000000000,\"method\":5,"
                          "\"method_name\":\"SiebRestklassen\",\"seconds\":", 0), 0u) << s.aus;
    EXPECT_EQ(s.aus.back(), '\n');
    EXPECT_EQ(std::count(s.aus.begin(), s.aus.end(), '\n'), 1);

    const Lauf t = Starten("sieve 2.000.000");
    EXPECT_NE(t.aus.find("primes:  148933\n"), std::string::npos) << t.aus;
    EXPECT_NE(t.aus.find("SiebProdukt"), std::string::npos);
}

// A block saved by one command serves the next; a raster too small for a question is refused.
TEST_F(Cli, BlockDateien) {
    ASSERT_EQ(Starten("sieve 1e6 --save '" + Ordner() + "P061.BLK'").code, 0);
    EXPECT_EQ(Starten("count 2 1e6 --block '" + Ordner() + "P061.BLK'").aus, "78498\n");
    const Lauf m3 = Starten("sieve 1e6 --method 3 --json");
    EXPECT_NE(m3.aus.find("\"primes\":78498"), std::string::npos) << m3.aus;
    Abgelehnt("count 2 2e6 --block '" + Ordner() + "P061.BLK'", "beyond");
    // next, prev and isprime go on beyond a raster of the user's, proven by its primes.
    EXPECT_EQ(Starten("isprime 1000000000039 --block '" + Ordner() + "P061.BLK'").aus, "prime\n");
    EXPECT_EQ(Starten("next 999983 --limit 1e6").aus, "1000003\n");
    EXPECT_EQ(Starten("prev 1000003 --limit 1e6 --json").aus, "{\"n\":1000003,\"prev\":999983,\"proven\":true,\"limit\":1000000}\n");

    std::ofstream(Ordner() + "ungerade.BLK") << "12345";
    Abgelehnt("count 2 100 --block '" + Ordner() + "ungerade.BLK'", "ungerade.BLK");
    Abgelehnt("count 2 100 --block '" + Ordner() + "fehlt.BLK'", "fehlt.BLK");
    Abgelehnt("sieve 1e6 --save '" + Ordner() + "kein/ordner.BLK'", "ordner.BLK");
}

// Every number argument is a formula; grouped and exponent forms keep working.
TEST_F(Cli, Formeln) {
    const std::vector<std::pair<std::string, std::string>> faelle = {
        {"isprime 2^61-1", "prime\n"},
        {"count 10^12 10^12+10^6", "36249\n"},  // primesieve
        {"count 2 10^6 --limit 10^6", "78498\n"},
        {"primes '(10^6)' '10^6 + 100'", "1000003\n1000033\n1000037\n1000039\n1000081\n1000099\n"},
        {"twins 10^3 10^3+92", "1019 1021\n1031 1033\n1049 1051\n1061 1063\n"},
        {"factor 2^10*3^5", "248832 = 2^10x3^5\n"},
        {"next 'SQRT(10^40) + 38'", "100000000000000000039 (probable prime)\n"},
        {"prev 2.000.000.000", "1999999973\n"},
    };
    for (const auto& [argumente, erwartet] : faelle) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 0) << argumente << ": " << l.fehler;
        EXPECT_EQ(l.aus, erwartet) << argumente;
    }
    const Lauf s = Starten("sieve 2*10^6 --json");
    EXPECT_EQ(s.aus.rfind("{\"limit\":2000000,\"primes\":148933,", 0), 0u) << s.aus;
}

// Above the raster next, prev and isprime sieve a window next to N instead of a raster up to N,
// and BPSW decides what the window's primes cannot: a proof below 2^64, "probable" above.
// Values from PARI/GP.
TEST_F(Cli, JenseitsDesRasters) {
    const std::vector<std::pair<std::string, std::string>> faelle = {
        {"next 10^11", "100000000003\n"},
        {"next 18446744073709551615", "18446744073709551629 (probable prime)\n"},
        {"prev 2^64", "18446744073709551557\n"},
        {"prev 10^30", "999999999999999999999999999989 (probable prime)\n"},
        {"next 10^30", "1000000000000000000000000000057 (probable prime)\n"},
        // Across 2^96, where the window gives way to the walk over numbers prime to 30.
        {"next 2^96-17", "79228162514264337593543950397 (probable prime)\n"},
        {"prev 2^96+61", "79228162514264337593543950319 (probable prime)\n"},
        {"isprime 10^20+39", "probable prime\n"},
        {"isprime 2^127-1", "probable prime\n"},
        {"isprime 2^61-1", "prime\n"},
        // Both factors beyond the window's sieving primes: BPSW proves it composite.
        {"isprime 10000019*10000079", "composite\n"},
        {"isprime 10^20+1", "composite\n"},
        {"isprime 10^40", "composite\n"},
        {"next 2^64 --json", "{\"n\":18446744073709551616,\"next\":18446744073709551629,\"proven\":false,\"limit\":10000000}\n"},
        {"isprime 2^89-1 --json", "{\"n\":618970019642690137449562111,\"prime\":true,\"proven\":false,\"limit\":10000000}\n"},
        {"isprime 1 --json", "{\"n\":1,\"prime\":false,\"proven\":true,\"limit\":1000}\n"},
    };
    for (const auto& [argumente, erwartet] : faelle) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 0) << argumente << ": " << l.fehler;
        EXPECT_EQ(l.aus, erwartet) << argumente;
    }
}

// With --json a refusal is one JSON object on stdout as well; the exit code stays 1.
TEST_F(Cli, JsonFehler) {
    for (const char* argumente : {"isprime 2x3 --json", "count 10 1 --json", "eval 7/0 --json", "next --json",
                                  "factor 0 --json"}) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 1) << argumente;
        EXPECT_EQ(l.aus.rfind("{\"error\":\"", 0), 0u) << argumente << ": " << l.aus;
        EXPECT_EQ(l.aus.substr(l.aus.size() - 3), "\"}\n") << argumente << ": " << l.aus;
        EXPECT_EQ(std::count(l.aus.begin(), l.aus.end(), '\n'), 1) << argumente;
        EXPECT_EQ(l.fehler.rfind("sw-cli: ", 0), 0u) << argumente;
    }
    EXPECT_EQ(Starten("isprime 2x3 --json").aus,
              "{\"error\":\"N is not a whole non-negative number: '2x3' (unknown word X; the words are SQR, SQRT, "
              "SQRMOD and MOD)\"}\n");
}

TEST_F(Cli, FalscheEingaben) {
    // Each with a word its message must carry ("" where any message will do).
    const std::pair<const char*, const char*> faelle[] = {
        {"count x 10", "not a whole"}, {"count 10 1", "greater than"}, {"primes 10 1", "greater than"},
        {"isprime -7", ""}, {"isprime 2.5", ""}, {"isprime 1.5e0", "fraction"}, {"count 2 2^96", "too large"},
        {"sieve 999", "1.000"}, {"sieve 3e9 --method 1", "2.000.000.000"},
        {"sieve 1e12 --method 0", ""},  // word indices beyond 32 bits
        {"sieve 1e6 --method 8", ""}, {"sieve 1e6 --method 7 --threads 0", "threads"}, {"count 2 10 --limit 999", "1.000"},
        {"count 2 10 --limit 1e6 --block x", "exclude"}, {"frobnicate", ""},
        {"twins 5 1", ""}, {"twins x 10", ""}, {"count 1e29 1e29", ""}, {"primes 3e9 2e9", ""},
        // Formulas: each refusal names the argument.
        {"isprime 2x3", "N is not"}, {"next 2^", "N is not"}, {"count '(1' 10", "FROM is not"},
        {"count 1 10-", "TO is not"}, {"isprime 7/0", "N '7/0'"}, {"count 2 10 --limit 10^6y", "--limit is not"},
        {"sieve 2*10^6+", "LIMIT is not"}, {"prev -5", "negative"}};
    for (const auto& [argumente, enthaelt] : faelle) Abgelehnt(argumente, enthaelt);

    const Lauf hilfe = Starten("--help");
    EXPECT_EQ(hilfe.code, 0);
    EXPECT_NE(hilfe.aus.find("sieve"), std::string::npos);
    const Lauf version = Starten("--version");
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.aus.rfind("sw-cli ", 0), 0u);
}

}  // namespace
}  // namespace sw::test
