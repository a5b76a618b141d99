#include "sieve/Blockdateien.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <new>

#include "frame/DateiErsetzen.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Zahlformat.h"
#include "primality/Probedivision.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basMaxPrimaer.h"

namespace sw {

namespace {

// Text keys of the block file boxes; the box also names the file and the cause, so that it
// reads clearly in any language of the text table.
constexpr int TextBlockNichtLesbar = 521;
constexpr int TextBlockPasstNicht = 522;
constexpr int TextDateiNichtSchreibbar = 523;

// The old platform's numbers for file failures.
constexpr int FehlerDateizugriff = 75;
constexpr int FehlerDateiende = 62;

void dateiFehler(int key, int nummer, const std::string& pfad, const std::string& grund) {
    const char* was = key == TextDateiNichtSchreibbar ? "Datei nicht schreibbar" : "Blockdatei nicht nutzbar";
    MsgFehler(key, Laufzeitfehler(nummer, std::string(was) + " (" + grund + "): " + pfad));
}

std::string dateiName(const std::string& pfad) {
    const size_t schnitt = pfad.find_last_of("/\\");
    return schnitt == std::string::npos ? pfad : pfad.substr(schnitt + 1);
}

// The length of a readable regular file, or -1 after the box that says why not.
int64_t lesbareLaenge(const std::string& pfad, int& fd) {
    fd = ::open(pfad.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        dateiFehler(TextBlockNichtLesbar, errno == ENOENT ? FehlerDateiNichtGefunden : FehlerDateizugriff,
                    pfad, std::strerror(errno));
        return -1;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        dateiFehler(TextBlockNichtLesbar, FehlerDateizugriff, pfad, "keine gewöhnliche Datei");
        ::close(fd);
        fd = -1;
        return -1;
    }
    return int64_t(st.st_size);
}

// Reads exactly bytes bytes into ziel; false after the box on a short or failed read.
bool allesLesen(int fd, void* ziel, size_t bytes, const std::string& pfad) {
    char* z = static_cast<char*>(ziel);
    while (bytes > 0) {
        const ssize_t n = ::read(fd, z, bytes);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            dateiFehler(TextBlockNichtLesbar, n == 0 ? FehlerDateiende : FehlerDateizugriff, pfad,
                        n == 0 ? "die Datei endet zu früh" : std::strerror(errno));
            return false;
        }
        z += n;
        bytes -= size_t(n);
    }
    return true;
}

// The read goes in pieces with a yield between them: a block of a large limit takes seconds
// to read, and the windows stay alive meanwhile.
constexpr size_t LeseWorte = size_t(1) << 18;

// Makes PrimaerRaster the first worte words of the file. On failure the raster is left as one
// zero word (RasterLetzterIndex 0), which no reader goes beyond.
bool rasterAusDatei(int fd, size_t worte, const std::string& pfad) {
    try {
        // The pre-sieved raster of the same limit is reused as it stands: it saves a second
        // allocation and zero fill of the whole raster, which would cost more than the read.
        if (PrimaerRaster.capacity() >= worte && PrimaerRaster.capacity() <= 2 * worte) {
            PrimaerRaster.resize(worte);
        } else {
            RasterNeuAnlegen(worte);
        }
    } catch (const std::bad_alloc&) {
        RasterAufEinWort();
        MsgSpeicher(Laufzeitfehler(FehlerKeinSpeicher));
        return false;
    }
    RasterAdresseAuffrischen();
    for (size_t ab = 0; ab < worte; ab += LeseWorte) {
        if (ab > 0) DoEvents();
        const size_t stueck = std::min(LeseWorte, worte - ab);
        if (!allesLesen(fd, PrimaerRaster.data() + ab, stueck * sizeof(uint32_t), pfad)) {
            RasterAufEinWort();
            return false;
        }
    }
    return true;
}

// Whether a number of the word k at or below bis reads struck although it is prime. A raster
// saved at the end of a run has all numbers above its limit struck, so such a number proves
// that the limit lay below it.
bool primzahlGestrichen(uint32_t wort, int64_t k, int64_t bis) {
    for (int i = 1; i <= 32; ++i) {
        const int64_t n = RasterSpanne * k + RasterRest[i];
        if (n <= bis && (wort & BitMaske[i]) && ProbedivisionPrim(uint64_t(n))) return true;
    }
    return false;
}

class DateiSchliessen {
public:
    explicit DateiSchliessen(int fd) : fd_(fd) {}
    ~DateiSchliessen() {
        if (fd_ >= 0) ::close(fd_);
    }
    DateiSchliessen(const DateiSchliessen&) = delete;
    DateiSchliessen& operator=(const DateiSchliessen&) = delete;

private:
    int fd_;
};

// A block name of the limit d * 10^e.
std::string nameAus(int ziffer, size_t exponent) {
    char puffer[16];
    std::snprintf(puffer, sizeof puffer, "P%02zu%d.BLK", exponent, ziffer);
    return puffer;
}

}  // namespace

std::string BlockName(const Decimal& grenze) {
    if (grenze < Decimal(1)) return "";
    const std::string ziffern = grenze.Text();
    if (ziffern.find_first_not_of('0', 1) != std::string::npos) return "";
    return nameAus(ziffern[0] - '0', ziffern.size() - 1);
}

std::string NaechsterBlockName() {
    const std::string eigener = BlockName(PrimaerGrenze);
    if (!eigener.empty() || PrimaerGrenze < Decimal(1)) return eigener;
    const std::string ziffern = PrimaerGrenze.Text();
    const int ziffer = ziffern[0] - '0' + 1;
    return ziffer == 10 ? nameAus(1, ziffern.size()) : nameAus(ziffer, ziffern.size() - 1);
}

// Only the length decides what a file holds, so a file that is too short for the limit, or
// whose length is no whole number of words, or whose word 0 is not that of a finished raster,
// is refused with a box: it would otherwise stand as a wrong raster. Only the words up to the
// limit are read, so that a small limit loads a large block in a moment.
bool BlockLaden(const std::string& pfad) {
    const int32_t letzter = RasterLetzterIndex;
    int fd = -1;
    const int64_t laenge = lesbareLaenge(pfad, fd);
    if (laenge < 0) return false;
    DateiSchliessen schliessen(fd);
    const size_t worte = size_t(laenge) / sizeof(uint32_t);
    const size_t noetig = size_t(letzter) + 1;
    if (laenge % 4 != 0 || worte < noetig) {
        dateiFehler(TextBlockPasstNicht, FehlerDateiende, pfad,
                    "die Datei hält " + ZahlFormat(static_cast<long long>(laenge)) + " Bytes, die Grenze braucht " +
                        ZahlFormat(static_cast<long long>(noetig * 4)) + " in ganzen Wörtern");
        return false;
    }
    uint32_t wort0 = 0;
    if (::pread(fd, &wort0, sizeof wort0, 0) != ssize_t(sizeof wort0) || wort0 != RasterWort0) {
        dateiFehler(TextBlockPasstNicht, FehlerDateizugriff, pfad, "Wort 0 ist nicht das eines fertigen Rasters");
        return false;
    }
    bool geladen = rasterAusDatei(fd, noetig, pfad);
    if (geladen) {
        // Every word of a finished raster but word 0 holds a struck multiple of 7; a word of
        // zeros is a hole in the file (a file that was only extended, or cut and padded).
        const auto leer = std::find(PrimaerRaster.begin() + 1, PrimaerRaster.end(), 0u);
        if (leer != PrimaerRaster.end()) {
            dateiFehler(TextBlockPasstNicht, FehlerDateizugriff, pfad,
                        "Wort " + ZahlFormat(static_cast<long long>(leer - PrimaerRaster.begin())) +
                            " ist leer, die Datei hält kein fertiges Raster");
            RasterAufEinWort();
            geladen = false;
        }
    }
    // A failed load leaves a raster of one word; the limit asked for stays, so that the
    // caller builds the raster of that limit anew.
    RasterLetzterIndex = letzter;
    return geladen;
}

bool GroesserenBlockNutzen() {
    namespace fs = std::filesystem;
    std::vector<std::string> namen;
    std::error_code ec;
    for (fs::directory_iterator it(ProgrammPfad.empty() ? "." : ProgrammPfad, ec), ende; !ec && it != ende;
         it.increment(ec)) {
        const std::string name = it->path().filename().string();
        // Both tests are case sensitive here: "p082.blk" does not serve.
        if (name.size() != 8 || name[0] != 'P' || name.compare(4, 4, ".BLK") != 0) continue;
        if (!std::all_of(name.begin() + 1, name.begin() + 4, [](char c) { return c >= '0' && c <= '9'; }))
            continue;
        if (std::stoi(name.substr(1, 3)) > 0) namen.push_back(name);
    }
    // Text order of these names is the order of their limits: exponent first, then digit.
    std::sort(namen.begin(), namen.end());
    const std::string ziel = NaechsterBlockName();
    auto treffer = std::lower_bound(namen.begin(), namen.end(), ziel);
    if (treffer == namen.end()) return false;
    if (!BlockLaden(ProgrammPfad + *treffer)) return false;
    // The load took the words up to the limit; the numbers of the last word above it are struck.
    UeberGrenzeStreichen();
    return true;
}

bool BlockDateiGueltig(const std::string& pfad) {
    const std::string name = dateiName(pfad);
    if (name.size() != 8 || name[0] != 'P') return false;
    std::string endung = name.substr(4);
    for (char& c : endung) c = char(std::toupper(static_cast<unsigned char>(c)));
    if (endung != ".BLK") return false;
    return std::all_of(name.begin() + 1, name.begin() + 4, [](char c) { return c >= '0' && c <= '9'; });
}

// Replaced in one step, so that an interrupted save never leaves a half-written block, and a longer old file cannot keep stale words
// behind the new ones, which a later load would take for part of the raster.
bool RasterSpeichern(const std::string& pfad, const std::vector<uint32_t>& raster) {
    const std::string_view inhalt(reinterpret_cast<const char*>(raster.data()), raster.size() * sizeof(uint32_t));
    if (!DateiErsetzen(pfad, inhalt)) {
        dateiFehler(TextDateiNichtSchreibbar, FehlerDateizugriff, pfad, std::strerror(errno));
        return false;
    }
    return true;
}

// The file says nothing of its limit but its length: the last word holds the limit somewhere.
// The limit is the last multiple of 1000 up to the end of that word, which gives a round
// limit back as it was saved; where that multiple lies inside the last word, a prime struck
// below it shows that the raster was saved at a lower limit, and the multiple before is taken.
bool PrimaerBlockLaden(const std::string& pfad) {
    int fd = -1;
    const int64_t laenge = lesbareLaenge(pfad, fd);
    if (laenge < 0) return false;
    DateiSchliessen schliessen(fd);
    // Everything is checked before the raster in memory is given up.
    if (laenge % 4 != 0) {
        dateiFehler(TextBlockPasstNicht, FehlerDateiende, pfad,
                    "die Länge " + ZahlFormat(static_cast<long long>(laenge)) + " ist kein Vielfaches von 4");
        return false;
    }
    const int64_t worte = laenge / 4;
    int64_t grenze = (int64_t(RasterSpanne) * worte - 1) / 1000 * 1000;
    if (grenze >= 1000 && grenze / RasterSpanne == worte - 1) {
        uint32_t letztes = 0;
        if (::pread(fd, &letztes, sizeof letztes, off_t(laenge - 4)) != ssize_t(sizeof letztes)) {
            dateiFehler(TextBlockNichtLesbar, FehlerDateizugriff, pfad, std::strerror(errno));
            return false;
        }
        if (primzahlGestrichen(letztes, worte - 1, grenze)) grenze -= 1000;
    }
    if (grenze < 1000) {
        MsgInfo(469);
        return false;
    }
    if (Decimal(grenze) > GroessteGrenze()) {
        MsgLimit(Laufzeitfehler(FehlerUeberlauf));
        return false;
    }
    const int64_t letzter = grenze / RasterSpanne;
    if (!rasterAusDatei(fd, size_t(letzter) + 1, pfad)) {
        LaufVerworfen();
        return false;
    }
    RasterLetzterIndex = int32_t(letzter);
    PrimaerGrenze = Decimal(grenze);
    PrimaerWurzel = int32_t(std::sqrt(double(grenze)));
    PrimaerWurzelWort = PrimaerWurzel / RasterSpanne;
    LaufAbschliessen();
    RasterEcht = BlockDateiGueltig(pfad);
    return true;
}

}  // namespace sw
