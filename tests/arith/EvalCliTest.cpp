// sw-cli eval from the outside: the value and digit count, --base, --full, --json, and one
// line "sw-cli: ..." with exit code 1 for every refused formula.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "ProgrammLauf.h"
#include "TestUmgebung.h"

namespace sw::test {
namespace {

class EvalCli : public SwTest {
protected:
    Lauf Starten(const std::string& argumente) {
        return ProgrammStarten(SW_CLI_PFAD, Ordner(), "eval " + argumente);
    }
};

TEST_F(EvalCli, ValuesAndDigitCounts) {
    EXPECT_EQ(Starten("'2^127-1'").aus, "170.141.183.460.469.231.731.687.303.715.884.105.727\n39 digits\n");
    EXPECT_EQ(Starten("'10^100' --full").aus, "1" + std::string(100, '0') + "\n101 digits\n");
    EXPECT_EQ(Starten("255 --base 16").aus, "FF\n2 digits\n");
    EXPECT_EQ(Starten("255 --base 20").aus, "12 15 \n2 digits\n");
    EXPECT_EQ(Starten("255 --base 40").aus, "6 15 \n2 digits\n");
    EXPECT_EQ(Starten("'2^64' --base 4294967").aus, "1000000 592000 87616 \n3 digits\n");
    EXPECT_EQ(Starten("'2^127-1' --json").aus,
              "{\"expr\":\"2^127-1\",\"base\":10,\"digits\":39,\"value\":\"170141183460469231731687303715884105727\"}\n");
    const Lauf m = Starten("'2^2976221-1'");
    EXPECT_EQ(m.code, 0);
    EXPECT_EQ(m.aus.substr(0, 20), "(895932)623.340.076.");
    EXPECT_NE(m.aus.find(" ... "), std::string::npos);
    EXPECT_NE(m.aus.find("\n895932 digits\n"), std::string::npos);
}

TEST_F(EvalCli, RefusedFormulasAreOneLineAndExitCodeOne) {
    for (const char* f : {"'7/0'", "'(2+3'", "'2)+1'", "'2^(10^10)'", "'1+x$'", "'2^100' --max-bits 50",
                          "1 --base 1", "'#3'", "'2+*3'", "abc", "'SQR'"}) {
        const Lauf l = Starten(f);
        EXPECT_EQ(l.code, 1) << f;
        EXPECT_EQ(l.aus, "") << f;
        EXPECT_EQ(l.fehler.rfind("sw-cli: ", 0), 0u) << f << ": " << l.fehler;
        EXPECT_EQ(std::count(l.fehler.begin(), l.fehler.end(), '\n'), 1) << f << ": " << l.fehler;
    }
}

}  // namespace
}  // namespace sw::test
