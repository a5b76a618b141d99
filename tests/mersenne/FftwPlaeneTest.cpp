// FFTW's plans kept across runs: a stored search is found again by a run of that length, a
// damaged file costs nothing but the stored plans, and a file that cannot be written is a
// clear error naming it.
#include <gtest/gtest.h>

#include <fstream>

#include "TestUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/FftwPlaene.h"
#include "mersenne/LucasDwt.h"

namespace sw::test {
namespace {

class FftwPlaeneTest : public SwTest {};

// 2^9941 - 1 is prime: a run with the plans at hand must still end in zero.
void laeuftBisNull(bool gespeichert) {
    LucasDwt d(9941);
    EXPECT_EQ(d.GespeichertePlaene(), gespeichert);
    ASSERT_EQ(d.Laufen(9939), 9939u);
    EXPECT_TRUE(d.IstNull());
}

TEST_F(FftwPlaeneTest, StoredPlansAreFoundAndADamagedFileIsIgnored) {
    FftwPlanSpeichern(LucasDwtLaenge(9941));
    ASSERT_TRUE(FftwWeisheitLesen());
    laeuftBisNull(true);

    std::string text;
    {
        std::ifstream f(FftwWeisheitDatei());
        std::getline(f, text, '\0');
    }
    std::ofstream(FftwWeisheitDatei(), std::ios::trunc) << text.substr(0, text.size() / 2) << "\x01 kaputt";
    EXPECT_FALSE(FftwWeisheitLesen());
    laeuftBisNull(false);
}

TEST_F(FftwPlaeneTest, AnUnwritableFileIsAnErrorNamingIt) {
    ProgrammPfad += "fehlt/";
    try {
        FftwPlanSpeichern(64);
        FAIL() << "no error";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Beschreibung(), TextP1(1406, FftwWeisheitDatei()));
    }
}

}  // namespace
}  // namespace sw::test
