// sw-cli twins --method: the four methods give the pairs the plain walk gives, at any height,
// with count and seconds; the warnings and refusals of the twin window as one line each.
#include <gtest/gtest.h>

#include <algorithm>

#include "CliBasis.h"

namespace sw::test {
namespace {

using ZwillingeCli = CliBasis;

// The pairs without the closing line "n twins in s s".
std::string Paare(const std::string& aus) {
    const size_t ende = aus.rfind('\n', aus.size() - 2);
    return ende == std::string::npos ? "" : aus.substr(0, ende + 1);
}

TEST_F(ZwillingeCli, VerfahrenWieDerGang) {
    const Lauf gang = Starten("twins 10^6 10^6+3000");
    ASSERT_EQ(gang.code, 0) << gang.fehler;
    ASSERT_FALSE(gang.aus.empty());
    for (const char* methode : {"0", "1", "2", "3"}) {
        const Lauf l = Starten(std::string("twins 10^6 10^6+3000 --method ") + methode);
        EXPECT_EQ(l.code, 0) << methode << ": " << l.fehler;
        EXPECT_EQ(Paare(l.aus), gang.aus) << methode;
        const std::string schluss = std::to_string(std::count(gang.aus.begin(), gang.aus.end(), '\n')) + " twins in ";
        EXPECT_EQ(l.aus.substr(Paare(l.aus).size(), schluss.size()), schluss) << l.aus;
    }
    const Lauf klein = Starten("twins 0 20 --method 1 --json");
    EXPECT_EQ(klein.aus.substr(0, klein.aus.find(",\"seconds\"")),
              R"({"from":0,"to":20,"method":1,"limit":1000,"twins":[[3,5],[5,7],[11,13],[17,19]],"count":4)");
    // Far above any raster (pairs as PARI/GP finds them); --test alone means method 3.
    const std::string hoch = "10000000000000000000000000000000000016111 10000000000000000000000000000000000016113\n"
                             "10000000000000000000000000000000000028837 10000000000000000000000000000000000028839\n";
    for (const char* test : {"perrin", "rabin", "strassen", "fermat", "bpsw"}) {
        const Lauf l = Starten(std::string("twins 10^40 10^40+30000 --test ") + test);
        EXPECT_EQ(l.code, 0) << test << ": " << l.fehler;
        EXPECT_EQ(Paare(l.aus), hoch) << test;
    }
}

TEST_F(ZwillingeCli, WarnungenUndAblehnungen) {
    // Method 0 beyond the square of the raster warns and lists what passed its divisors.
    const Lauf l = Starten("twins 10^9 10^9+500 --method 0 --limit 1000");
    EXPECT_EQ(l.code, 0);
    EXPECT_EQ(l.fehler.rfind("sw-cli: warning: Es werden nicht alle Teiler gebildet!", 0), 0u) << l.fehler;
    Abgelehnt("twins 100 2000 --method 1 --limit 1000", "Primärbereich zu niedrig");
    Abgelehnt("twins 10^7 10^7+100 --method 2 --limit 1000", "Sekundärbereich zu niedrig");
    Abgelehnt("twins 10^50 10^50+3*10^9 --method 3", "2000000000");
    Abgelehnt("twins 10 5 --method 0", "greater");
    Abgelehnt("twins 10 50 --method 4", "--method");
    Abgelehnt("twins 10 50 --method 0 --test bpsw", "--test");
    Abgelehnt("twins 10 50 --test miller", "--test");
}

}  // namespace
}  // namespace sw::test
