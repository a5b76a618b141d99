#include "sieve/RasterTabellen.h"

#include "frame/Texte.h"
#include "frame/basZentral.h"

namespace sw {

uint32_t BitMaske[33];
uint32_t BitMaske0[32];
int32_t RasterRest[33];
uint32_t RestMaske[121];
int32_t ProduktWort[32 * 32];
uint32_t ProduktMaske[32 * 32];
int32_t RadSchritt[8];
Decimal Dec0, Dec1, Dec2, Dec3;
Decimal Zweierpotenz[96];
std::vector<int32_t> Hyp0, Hyp1, Hyp2;

void RasterTabellenAufbauen() {
    PrimaerRaster.assign(1, 0);
    RasterAdresseAuffrischen();
    SekundaerRaster.assign(1, 0);
    DbSegmentMarke = 2323;
    SqlZaehlKopf = "SELECT Count(*) AS Anzahl FROM t_Prim ";

    Dec0 = 0;
    Dec1 = 1;
    Dec2 = 2;
    Dec3 = 3;
    const int32_t rad[8] = {6, 4, 2, 4, 2, 4, 6, 2};
    for (int i = 0; i < 8; ++i) RadSchritt[i] = rad[i];
    Hyp0 = {1, 0};
    Hyp1 = {1, 1};
    Hyp2 = {1, 2};

    ZahlenSystem = 10;
    // Without a text table the list stays empty; the windows that need it report the file.
    try {
        MersenneExponenten = TextListe(999);
    } catch (const Laufzeitfehler&) {
        MersenneExponenten.clear();
    }

    BitMaske[0] = 0;
    BitMaske[1] = 0x80000000u;
    BitMaske[2] = 0x40000000u;
    for (int i = 3; i <= 32; ++i) BitMaske[i] = BitMaske[i - 1] / 2;

    const int32_t erste[8] = {1, 7, 11, 13, 17, 19, 23, 29};
    RasterRest[0] = 0;
    for (int i = 1; i <= 8; ++i) RasterRest[i] = erste[i - 1];
    for (int i = 9; i <= 32; ++i) RasterRest[i] = RasterRest[i - 8] + 30;

    for (uint32_t& m : RestMaske) m = 0;
    for (int i = 0; i < 32; ++i) BitMaske0[i] = BitMaske[i + 1];
    for (int i = 1; i <= 32; ++i) RestMaske[RasterRest[i]] = BitMaske[i];

    for (int a = 0; a < 32; ++a) {
        for (int b = 0; b < 32; ++b) {
            int32_t produkt = RasterRest[a + 1] * RasterRest[b + 1];
            ProduktWort[a * 32 + b] = produkt / RasterSpanne;
            ProduktMaske[a * 32 + b] = RestMaske[produkt % RasterSpanne];
        }
    }

    Zweierpotenz[0] = Dec1;
    for (int i = 1; i < 96; ++i) Zweierpotenz[i] = Zweierpotenz[i - 1] * Dec2;
}

}  // namespace sw
