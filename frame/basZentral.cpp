#include "frame/basZentral.h"

namespace sw {

bool Abbruch = false;
double StartZeit = 0;
std::string AktivesFenster = "Cockpit";
std::string ProgrammPfad;

std::string FormatZeichen = ".";
int32_t FormatAnzahl = 3;
int32_t MaxFormatStellen = 60;
int32_t NachKommaExtern = 2;
int32_t NachKommaIntern = 10;
bool StellenZahlAnzeigen = true;
int32_t ZahlenSystem = 10;
// Designed colours: white on dark blue for large numbers, black on light yellow for texts.
int32_t GrossZahlFarbe[4] = {0xFFFFFF, 0x803000, 0x000000, 0xE0FFFF};
bool StoppUhrAktiv = false;

double RandomProzentFaktor = 1.0;
int32_t RandomFaktorBitKette = 0;
std::string RandomInfoText = "(2,3,5)";
int32_t RandomPrimIntervall = 6;

std::vector<uint32_t> PrimaerRaster(1, 0);
uint32_t* PrimaerRasterAdresse = PrimaerRaster.data();
std::vector<uint32_t> SekundaerRaster(1, 0);
Decimal PrimaerGrenze;
Decimal PrimaerQuadrat;
int32_t RasterLetzterIndex = 0;
int32_t PrimaerWurzel = 0;
int32_t PrimaerWurzelWort = 0;
Decimal SekundaerStart;
Decimal SekundaerEnde;
bool RasterBereit = false;
bool RasterEcht = true;

std::string SqlZaehlKopf = "SELECT Count(*) AS Anzahl FROM t_Prim ";
int32_t DbSegmentMarke = 2323;
std::vector<int32_t> MersenneExponenten;

bool StartStopUmschalten(std::string& caption, const std::string& ruheText) {
    if (caption != "Stop") {
        caption = "Stop";
        Abbruch = false;
        return false;
    }
    caption = ruheText;
    Abbruch = true;
    return true;
}

void ZentralZuruecksetzen() {
    Abbruch = false;
    StartZeit = 0;
    AktivesFenster = "Cockpit";
    FormatZeichen = ".";
    FormatAnzahl = 3;
    MaxFormatStellen = 60;
    NachKommaExtern = 2;
    NachKommaIntern = 10;
    StellenZahlAnzeigen = true;
    ZahlenSystem = 10;
    GrossZahlFarbe[0] = 0xFFFFFF;
    GrossZahlFarbe[1] = 0x803000;
    GrossZahlFarbe[2] = 0x000000;
    GrossZahlFarbe[3] = 0xE0FFFF;
    StoppUhrAktiv = false;
    RandomProzentFaktor = 1.0;
    RandomFaktorBitKette = 0;
    RandomInfoText = "(2,3,5)";
    RandomPrimIntervall = 6;
    PrimaerRaster.assign(1, 0);
    RasterAdresseAuffrischen();
    SekundaerRaster.assign(1, 0);
    PrimaerGrenze = Decimal();
    PrimaerQuadrat = Decimal();
    RasterLetzterIndex = 0;
    PrimaerWurzel = 0;
    PrimaerWurzelWort = 0;
    SekundaerStart = Decimal();
    SekundaerEnde = Decimal();
    RasterBereit = false;
    RasterEcht = true;
    DbSegmentMarke = 2323;
}

}  // namespace sw
