// sw-cli beyond the primary raster: counts, lists and twin pairs through the secondary sieve
// agree with the values primesieve gives, around the switch-over at GrenzeLong, across the
// seam of two windows, and bad input ends with one line and exit code 1.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "TestUmgebung.h"

namespace sw::test {
namespace {

class SekundaerCli : public SwTest {
protected:
    // Runs sw-cli; stdout and stderr are kept in files of the test's folder.
    int Aufruf(const std::string& argumente, std::string& aus, std::string& fehler) {
        const std::string a = Ordner() + "aus.txt", f = Ordner() + "fehler.txt";
        const std::string befehl = "SW_HOME='" + Ordner() + "' '" SW_CLI_PFAD "' " + argumente + " >'" + a + "' 2>'" + f + "'";
        const int status = std::system(befehl.c_str());
        aus = Lesen(a);
        fehler = Lesen(f);
        return WEXITSTATUS(status);
    }
    static std::string Lesen(const std::string& pfad) {
        std::ifstream ein(pfad);
        std::stringstream s;
        s << ein.rdbuf();
        return s.str();
    }
    std::string Antwort(const std::string& argumente) {
        std::string aus, fehler;
        EXPECT_EQ(Aufruf(argumente, aus, fehler), 0) << argumente << ": " << fehler;
        return aus;
    }
};

TEST_F(SekundaerCli, ZaehlenUndAuflisten) {
    // 2^32 .. 2^32 + 10^6 (primesieve: 45038).
    EXPECT_EQ(Antwort("count 4294967296 4295967296"), "45038\n");
    // Just above GrenzeLong the windows answer.
    EXPECT_EQ(Antwort("count 2000000000 2000001000"), "52\n");
    EXPECT_EQ(Antwort("count 2000000000 2000001001"), "53\n");
    EXPECT_EQ(Antwort("primes 1e15 1000000000000300"),
              "1000000000000037\n1000000000000091\n1000000000000159\n1000000000000187\n1000000000000223\n"
              "1000000000000241\n1000000000000249\n1000000000000259\n1000000000000273\n1000000000000279\n"
              "1000000000000297\n");
    EXPECT_EQ(Antwort("count 1e15 1000000000000300 --json"),
              "{\"from\":1000000000000000,\"to\":1000000000000300,\"count\":11,\"limit\":31622776}\n");
    EXPECT_EQ(Antwort("primes 1e15 1000000000000100 --json"),
              "{\"from\":1000000000000000,\"to\":1000000000000100,\"limit\":31622776,\"primes\":[1000000000000037,"
              "1000000000000091],\"count\":2}\n");
}

TEST_F(SekundaerCli, Zwillinge) {
    // primesieve: 20 pairs from 10^12 to 10^12 + 10^4.
    const std::string paare = Antwort("twins 1e12 1000000010000");
    EXPECT_EQ(std::count(paare.begin(), paare.end(), '\n'), 20);
    EXPECT_EQ(paare.substr(0, paare.find('\n')), "1000000000061 1000000000063");
    // Below GrenzeLong from the primary raster, with the small pairs.
    EXPECT_EQ(Antwort("twins 0 20"), "3 5\n5 7\n11 13\n17 19\n");
    EXPECT_EQ(Antwort("twins 1000 1100 --json"),
              "{\"from\":1000,\"to\":1100,\"limit\":1100,\"twins\":[[1019,1021],[1031,1033],[1049,1051],[1061,1063],"
              "[1091,1093]],\"count\":5}\n");
    // A pair whose second prime lies beyond TO is not listed.
    EXPECT_EQ(Antwort("twins 1000 1092"), "1019 1021\n1031 1033\n1049 1051\n1061 1063\n");
}

TEST_F(SekundaerCli, FalscheEingaben) {
    for (const char* argumente : {"twins 5 1", "twins x 10", "count 1e29 1e29", "primes 3e9 2e9"}) {
        std::string aus, fehler;
        EXPECT_EQ(Aufruf(argumente, aus, fehler), 1) << argumente;
        EXPECT_EQ(aus, "") << argumente;
        EXPECT_EQ(fehler.rfind("sw-cli: ", 0), 0u) << argumente << ": " << fehler;
        EXPECT_EQ(std::count(fehler.begin(), fehler.end(), '\n'), 1) << argumente << ": " << fehler;
    }
}

}  // namespace
}  // namespace sw::test
