// sw-cli db status|kclasses|gaps|bits|residues on the database of every exponent to 100,000
// searched to k = 1000: the figures as JSON and as lines, a database left untouched, and the
// refusals of a wrong range, an empty folder and a wrong choice.
#include <filesystem>
#include <fstream>

#include "CliBasis.h"
#include "MersenneBestand.h"

namespace sw::test {
namespace {

std::string Inhalt(const std::string& pfad) {
    std::ifstream f(pfad, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

class DbAnalyseCli : public CliBasis {};

TEST_F(DbAnalyseCli, FigurenUndAblehnungen) {
    BestandAnlegen();
    const std::string vorher = Inhalt(DbDateiPfad(0));
    Lauf l = Starten("db status 0 10000 --scale 10000 --json");
    EXPECT_EQ(l.aus, "{\"stretches\":[{\"from\":0,\"below\":10000,\"primes\":1229,\"settled\":564,\"share\":\"45.8910 %\"}],"
                     "\"with_divisor\":543,\"q_1_mod_8\":200,\"q_7_mod_8\":343,\"p_1_mod_3\":243,\"p_2_mod_3\":300,"
                     "\"p_1_mod_4\":261,\"p_3_mod_4\":282}\n")
        << l.fehler;
    l = Starten("db kclasses 3 100000 --kmax 100");
    EXPECT_EQ(l.aus, "3..100000: 9591 primes, 2811 with a divisor; k = 0 / 1 / 3 mod 4: 951 / 1083 / 777\n") << l.fehler;
    l = Starten("db gaps 3 100000 --max 6");
    EXPECT_EQ(l.aus, "Lücke 2: 181 >>> 25,315\nLücke 4: 179 >>> 25,035\nLücke 6: 355 >>> 49,650\n") << l.fehler;
    l = Starten("db bits 3 100000 --of q --bits 3");
    EXPECT_EQ(l.aus, "3703 rows analysed, 0 with several divisors left out\n001: 1376\n111: 2327\n") << l.fehler;
    l = Starten("db residues 3 100000 --mod 4 --pmod 4 --json");
    EXPECT_EQ(l.aus, "{\"modulus\":4,\"p_modulus\":4,\"rows\":3703,\"skipped_lists\":0,"
                     "\"counts\":[[0,0,0,0],[715,0,0,1012],[0,0,0,0],[661,1315,0,0]]}\n")
        << l.fehler;
    EXPECT_EQ(Inhalt(DbDateiPfad(0)), vorher);

    Abgelehnt("db status 5 5", "LO must lie below HI");
    Abgelehnt("db gaps 3 1000 --max 0", "mindestens 1");
    Abgelehnt("db bits 3 1000 --bits 6", "2 to 5");
    Abgelehnt("db residues 3 1000 --mod 4 --of x", "k or q");
    std::filesystem::create_directories(Ordner() + "/leer");
    Abgelehnt("db --db " + Ordner() + "/leer gaps 3 1000", "keine Mersenne-Datenbank");
    EXPECT_FALSE(std::filesystem::exists(Ordner() + "/leer/Prim.db"));
}

}  // namespace
}  // namespace sw::test
