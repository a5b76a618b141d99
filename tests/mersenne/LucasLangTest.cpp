// The larger Mersenne exponents up to 44,497 by the exact Karatsuba method and the transform,
// with a composite neighbour each. Minutes of work, so it runs only with SW_LANGE_TESTS=1 in
// the environment (SW_LANGE_TESTS=1 ctest -R Lang); the everyday run skips it.
#include <gtest/gtest.h>

#include <cstdlib>

#include "TestUmgebung.h"
#include "mersenne/LucasLauf.h"

namespace sw::test {
namespace {

class LucasLang : public SwTest {};

TEST_F(LucasLang, LargeMersenneExponents) {
    // Minutes of CPU: kept out of the everyday run (and CI), run on request before a release.
    if (!std::getenv("SW_LANGE_TESTS")) GTEST_SKIP() << "nur mit SW_LANGE_TESTS=1";
    const std::pair<uint32_t, bool> faelle[] = {{9689, true},   {9697, false},  {9941, true},   {11213, true},
                                                {19937, true},  {21701, true},  {21713, false}, {23209, true},
                                                {44497, true},  {44501, false}};
    for (const auto& [p, prim] : faelle) {
        for (int32_t methode : {LucasMethodeKaratsuba, LucasMethodeDwt}) {
            LucasAuftrag a;
            a.p = p;
            a.methode = methode;
            a.pruefpunkte = false;
            const LucasBefund b = LucasLauf(a, nullptr);
            EXPECT_EQ(b.ergebnis, prim ? LucasErgebnis::Prim : LucasErgebnis::Zusammengesetzt) << p << " " << methode;
        }
    }
}

}  // namespace
}  // namespace sw::test
