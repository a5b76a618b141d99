// Checkpoints of a Lucas-Lehmer run: a stopped run goes on to the Res64 of an uninterrupted
// one, and a damaged, foreign or unexpected checkpoint is refused and left where it lies.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "mersenne/LucasLauf.h"
#include "mersenne/LucasPruefpunkt.h"

namespace sw::test {
namespace {

class LucasPruefpunkte : public SwTest {};

int stoppNach = 0;

LucasBefund laufen(uint32_t p, int32_t methode, bool fortsetzen) {
    LucasAuftrag a;
    a.p = p;
    a.methode = methode;
    a.fortsetzen = fortsetzen;
    return LucasLauf(a, nullptr);
}

std::string meldung(uint32_t p, bool fortsetzen) {
    try {
        laufen(p, LucasMethodeKaratsuba, fortsetzen);
    } catch (const Laufzeitfehler& e) {
        return e.Beschreibung();
    }
    return "";
}

TEST_F(LucasPruefpunkte, WrittenAndReadBack) {
    const std::string datei = LucasPruefpunktDatei(67);
    PruefpunktSchreiben(datei, {67, 2, 40, {1, 2, 3}});
    const auto punkt = PruefpunktLesen(datei, 67);
    ASSERT_TRUE(punkt);
    EXPECT_EQ(punkt->methode, 2);
    EXPECT_EQ(punkt->iteration, 40u);
    EXPECT_EQ(punkt->rest, (std::vector<uint32_t>{1, 2, 3}));
    EXPECT_FALSE(PruefpunktLesen(LucasPruefpunktDatei(71), 71));
}

// Stopped after a few batches by each method, and gone on with another: the residue is the
// same whichever method computed it.
TEST_F(LucasPruefpunkte, AResumedRunEndsLikeAnUninterruptedOne) {
    const uint32_t p = 4421;
    for (int32_t methode = 0; methode < LucasMethodenAnzahl; ++methode) {
        stoppNach = 6;
        ui.beiDoEvents = [] {
            if (--stoppNach == 0) Abbruch = true;
        };
        const LucasBefund gestoppt = laufen(p, methode, false);
        ASSERT_EQ(gestoppt.ergebnis, LucasErgebnis::Abgebrochen);
        ASSERT_LT(gestoppt.iteration, p - 1);
        ASSERT_TRUE(std::filesystem::exists(LucasPruefpunktDatei(p)));
        ui.beiDoEvents = nullptr;
        Abbruch = false;
        const LucasBefund weiter = laufen(p, (methode + 1) % LucasMethodenAnzahl, true);
        EXPECT_EQ(weiter.fortgesetztAb, gestoppt.iteration);
        EXPECT_EQ(Res64Text(weiter.res64), "436652647E1E860B") << methode;
        EXPECT_FALSE(std::filesystem::exists(LucasPruefpunktDatei(p))) << "a finished run's checkpoint is spent";
    }
}

TEST_F(LucasPruefpunkte, DamagedForeignOrUnexpectedCheckpointsAreRefusedAndKept) {
    const std::string datei = LucasPruefpunktDatei(89);
    PruefpunktSchreiben(datei, {89, 2, 10, {5, 6, 7}});
    EXPECT_NE(meldung(89, false).find("schon eine Sicherung"), std::string::npos);

    // One flipped bit anywhere.
    std::string inhalt;
    {
        std::ifstream f(datei, std::ios::binary);
        inhalt.assign(std::istreambuf_iterator<char>(f), {});
    }
    for (size_t stelle : {size_t(0), size_t(9), size_t(26), inhalt.size() - 1}) {
        std::string kaputt = inhalt;
        kaputt[stelle] ^= 4;
        std::ofstream(datei, std::ios::binary) << kaputt;
        EXPECT_NE(meldung(89, true).find("beschädigt"), std::string::npos) << stelle;
        EXPECT_TRUE(std::filesystem::exists(datei));
    }
    std::ofstream(datei, std::ios::binary) << inhalt.substr(0, 20);
    EXPECT_NE(meldung(89, true).find("beschädigt"), std::string::npos);

    // The checkpoint of 89 under the name of 107.
    std::ofstream(datei, std::ios::binary) << inhalt;
    std::filesystem::copy_file(datei, LucasPruefpunktDatei(107));
    EXPECT_NE(meldung(107, true).find("Exponenten 89"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(LucasPruefpunktDatei(107)));
    EXPECT_TRUE(std::filesystem::exists(datei));
}

}  // namespace
}  // namespace sw::test
