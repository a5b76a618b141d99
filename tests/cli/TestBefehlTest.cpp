// sw-cli test: the verdict and whether it is proven, readable and as JSON, for formulas and
// long numbers, and the refusals of bad methods, limits and formulas.
#include <gtest/gtest.h>

#include "CliBasis.h"

namespace sw::test {
namespace {

using CliTestBefehl = CliBasis;

TEST_F(CliTestBefehl, UrteilUndBeweis) {
    const std::pair<std::string, std::string> faelle[] = {
        {"test 2^61-1 --json",
         R"({"number":"2305843009213693951","method":"BPSW","verdict":"prime","proven":true})"},
        {"test 2^89-1 --method 1 --json",
         R"({"number":"618970019642690137449562111","method":"Miller-Rabin","verdict":"prime","proven":true})"},
        {"test 341 --method 4 --limit 10 --json",
         R"({"number":"341","method":"Fermat","verdict":"probable prime","proven":false})"},
        {"test 341 --method 4 --json",
         R"({"number":"341","method":"Fermat","verdict":"composite","proven":true})"},
        {"test 1000003*1000033 --method 0 --limit 0 --json",
         R"({"number":"1000036000099","method":"Probedivision","verdict":"composite","proven":true})"},
        {"test 1 --json",
         R"({"number":"1","method":"BPSW","verdict":"neither prime nor composite","proven":false})"},
    };
    for (const auto& [argumente, erwartet] : faelle) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 0) << argumente << ": " << l.fehler;
        EXPECT_EQ(l.aus, erwartet + "\n") << argumente;
    }
    // A 3,000-digit prime: shortened in JSON, probable in the readable form.
    const Lauf lang = Starten("test 2^9941-1 --json");
    EXPECT_NE(lang.aus.find(R"("verdict":"probable prime","proven":false)"), std::string::npos)
        << lang.aus;
    EXPECT_LT(lang.aus.size(), 400u);
    const Lauf text = Starten("test 2^9941-1");
    EXPECT_NE(text.aus.find("\nprobable prime, not proven\n"), std::string::npos) << text.aus;
}

TEST_F(CliTestBefehl, Abgelehnt) {
    for (const char* argumente :
         {"test 7 --method 9", "test 7 --limit zehn", "test 7 --limit 3e9", "test '2^('"})
        Abgelehnt(argumente);
}

}  // namespace
}  // namespace sw::test
