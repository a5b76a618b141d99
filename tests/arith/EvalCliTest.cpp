// sw-cli eval from the outside: the value and digit count, --base, --full, --json, and one
// line "sw-cli: ..." with exit code 1 for every refused formula.
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

class EvalCli : public SwTest {
protected:
    Lauf Starten(const std::string& argumente) {
        const std::string fehlerDatei = Ordner() + "stderr.txt";
        const std::string befehl =
            "SW_HOME='" + Ordner() + "' '" SW_CLI_PFAD "' eval " + argumente + " 2>'" + fehlerDatei + "'";
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
};

TEST_F(EvalCli, ValuesAndDigitCounts) {
    EXPECT_EQ(Starten("'2^127-1'").aus, "170.141.183.460.469.231.731.687.303.715.884.105.727\n39 digits\n");
    EXPECT_EQ(Starten("'10^100' --full").aus, "1" + std::string(100, '0') + "\n101 digits\n");
    EXPECT_EQ(Starten("255 --base 16").aus, "FF\n2 digits\n");
    EXPECT_EQ(Starten("255 --base 20").aus, "12 15 \n2 digits\n");
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
                          "1 --base 1", "'#3'"}) {
        const Lauf l = Starten(f);
        EXPECT_EQ(l.code, 1) << f;
        EXPECT_EQ(l.aus, "") << f;
        EXPECT_EQ(l.fehler.rfind("sw-cli: ", 0), 0u) << f << ": " << l.fehler;
        EXPECT_EQ(std::count(l.fehler.begin(), l.fehler.end(), '\n'), 1) << f << ": " << l.fehler;
    }
}

}  // namespace
}  // namespace sw::test
