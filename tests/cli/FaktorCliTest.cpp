// sw-cli factor from the outside: formulas of any size, grouped powers, the proved flags of
// the JSON form, and refusals as one line.
#include <gtest/gtest.h>

#include "CliBasis.h"

namespace sw::test {
namespace {

using FaktorCli = CliBasis;

TEST_F(FaktorCli, TextUndJson) {
    const std::pair<const char*, const char*> faelle[] = {
        {"factor 1", "1 = 1\n"},
        {"factor 600851475143", "600851475143 = 71x839x1471x6857\n"},
        {"factor '2^21*5^21'", "1000000000000000000000 = 2^21x5^21\n"},
        {"factor '2^128+1'",
         "340282366920938463463374607431768211457 = 59649589127497217x5704689200685129054721\n"},
        // Beyond the raster of trial division: rho below 2^64.
        {"factor 1000000000039 --limit 1000", "1000000000039 = 1000000000039\n"},
        {"factor '2^64+1' --json",
         "{\"n\":18446744073709551617,\"factors\":[{\"factor\":274177,\"exponent\":1,\"prime\":"
         "true,\"proven\":true},"
         "{\"factor\":67280421310721,\"exponent\":1,\"prime\":true,\"proven\":true}],"
         "\"complete\":true,\"proven\":true,\"stopped\":false}\n"},
    };
    for (const auto& [argumente, erwartet] : faelle) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 0) << argumente << ": " << l.fehler;
        EXPECT_EQ(l.aus, erwartet) << argumente;
    }
}

TEST_F(FaktorCli, Ablehnungen) {
    for (const char* argumente : {"factor 0", "factor '3-3'", "factor '1/0'", "factor"})
        Abgelehnt(argumente);
}

}  // namespace
}  // namespace sw::test
