#include "mersenne/LucasLauf.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <future>
#include <memory>

#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/LucasDwt.h"
#include "mersenne/LucasPruefpunkt.h"
#include "primality/Probedivision.h"

namespace sw {

namespace {

constexpr double kSchubSekunden = 0.05;   // one yield about every twentieth of a second
constexpr uint32_t kRestDauerAb = 40000;  // the remaining time is shown above this p
constexpr double kSekundenProTag = 86400;
constexpr int kEingabeFehler = 5;

// The squaring machine of one method, behind one face: the driver only counts iterations.
class Rechenwerk {
public:
    virtual ~Rechenwerk() = default;
    // Runs up to n iterations and gives how many ran: fewer when the residue became 0 (null),
    // or, for the transform, when it gave up.
    virtual uint32_t Laufen(uint32_t n, bool& null) = 0;
    virtual std::vector<uint32_t> Wert() const = 0;
    virtual void Melden(LucasBefund&) const {}
};

class ExaktesWerk : public Rechenwerk {
public:
    ExaktesWerk(int32_t methode, uint32_t p, const std::vector<uint32_t>& rest) {
        LucasVorbereiten(methode, p);
        LucasRestSetzen(rest);
    }
    ~ExaktesWerk() override { LucasFreigeben(); }
    uint32_t Laufen(uint32_t n, bool& null) override {
        for (uint32_t k = 0; k < n; ++k) {
            if (LucasSchritt()) {
                null = true;  // the first zero ends the run, wherever it comes
                return k + 1;
            }
        }
        return n;
    }
    std::vector<uint32_t> Wert() const override { return LucasRest(); }
};

class TransformWerk : public Rechenwerk {
public:
    TransformWerk(uint32_t p, const std::vector<uint32_t>& rest) : dwt_(p), wortZahl_((size_t(p) + 31) / 32) {
        dwt_.Setzen(rest);
    }
    uint32_t Laufen(uint32_t n, bool& null) override {
        const uint32_t k = dwt_.Laufen(n);
        null = dwt_.IstNull();
        return k;
    }
    std::vector<uint32_t> Wert() const override {
        std::vector<uint32_t> w = dwt_.Wert();
        w.resize(wortZahl_, 0);
        return w;
    }
    void Melden(LucasBefund& b) const override {
        b.fftLaenge = dwt_.FftLaenge();
        b.groessterFehler = std::max(b.groessterFehler, dwt_.GroessterFehler());
    }

private:
    LucasDwt dwt_;
    size_t wortZahl_;
};

std::unique_ptr<Rechenwerk> werkFuer(int32_t methode, uint32_t p, const std::vector<uint32_t>& rest) {
    if (methode == LucasMethodeDwt) return std::make_unique<TransformWerk>(p, rest);
    return std::make_unique<ExaktesWerk>(methode, p, rest);
}

// Without stored plans FFTW measures its own for a new length, up to seconds at the long ones.
// The window must not freeze meanwhile, so the transform is built in a worker while this
// thread goes on yielding; the exact methods are ready at once.
std::unique_ptr<Rechenwerk> werkBauen(int32_t methode, uint32_t p, const std::vector<uint32_t>& rest) {
    if (methode != LucasMethodeDwt) return werkFuer(methode, p, rest);
    auto bau = std::async(std::launch::async, [&] { return werkFuer(methode, p, rest); });
    while (bau.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready) DoEvents();
    return bau.get();
}

bool istNull(const std::vector<uint32_t>& rest) {
    return std::all_of(rest.begin(), rest.end(), [](uint32_t w) { return w == 0; });
}

}  // namespace

bool LucasExponentPrim(uint32_t p) { return ProbedivisionPrim(p); }

std::string Res64Text(uint64_t r) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llX", static_cast<unsigned long long>(r));
    return text;
}

LucasBefund LucasLauf(const LucasAuftrag& auftrag, LucasAnzeige* anzeige) {
    const uint32_t p = auftrag.p;
    if (p < 3) throw Laufzeitfehler(kEingabeFehler, Text(515));
    if (!LucasExponentPrim(p)) throw Laufzeitfehler(kEingabeFehler, Text(409));
    if (auftrag.methode < 0 || auftrag.methode >= LucasMethodenAnzahl) throw Laufzeitfehler(kEingabeFehler);

    const std::string datei = LucasPruefpunktDatei(p);
    LucasBefund b;
    b.methode = auftrag.methode;
    std::vector<uint32_t> rest((p + 31) / 32, 0);
    rest[0] = 4;
    uint32_t i = 1;
    if (auftrag.pruefpunkte) {
        if (auftrag.fortsetzen) {
            if (auto punkt = PruefpunktLesen(datei, p)) {
                rest = punkt->rest;
                i = b.fortgesetztAb = punkt->iteration;
            }
        } else if (std::filesystem::exists(datei)) {
            throw Laufzeitfehler(kEingabeFehler, TextP1(1403, datei));
        }
    }

    std::unique_ptr<Rechenwerk> werk = werkBauen(b.methode, p, rest);
    auto sichern = [&] {
        if (auftrag.pruefpunkte) PruefpunktSchreiben(datei, {p, b.methode, i, werk->Wert()});
    };
    const double start = Timer();
    double letzterPunkt = start;
    uint32_t schub = 1;
    bool null = false;
    while (i < p - 1 && !null) {
        const uint32_t n = std::min(schub, p - 1 - i);
        const double vor = Timer();
        const uint32_t k = werk->Laufen(n, null);
        i += k;
        const double dauer = Timer() - vor;
        if (k < n && !null) {
            // The transform could not keep its round-off in bounds: the exact method goes on
            // from its last verified residue.
            werk->Melden(b);
            rest = werk->Wert();
            werk.reset();
            b.methode = LucasMethodeKaratsuba;
            werk = werkFuer(b.methode, p, rest);
            continue;
        }
        if (k > 0) {
            LucasZeitEnde = Timer() / kSekundenProTag;
            LucasZeitStart = LucasZeitEnde - dauer / k / kSekundenProTag;
        }
        // Batches grow until one takes about kSchubSekunden.
        if (dauer < kSchubSekunden / 2 && schub < (1u << 24)) schub *= 2;
        else if (dauer > 2 * kSchubSekunden && schub > 1) schub /= 2;
        if (anzeige != nullptr) anzeige->Stand(i, p > kRestDauerAb ? RestDauerText(int32_t(i), int32_t(p)) : "");
        try {
            DoEvents();
        } catch (...) {
            // A yield that leaves by an exception (Ctrl-C in sw-cli) stops the run between two
            // iterations, with a valid residue: keep it.
            sichern();
            throw;
        }
        if (Abbruch) {
            sichern();
            b.iteration = i;
            b.sekunden = Timer() - start;
            werk->Melden(b);
            return b;
        }
        if (auftrag.pruefpunkte && Timer() - letzterPunkt >= auftrag.pruefpunktSekunden) {
            sichern();
            letzterPunkt = Timer();
        }
    }
    rest = werk->Wert();
    werk->Melden(b);
    b.iteration = i;
    b.res64 = uint64_t(rest[0]) | (rest.size() > 1 ? uint64_t(rest[1]) << 32 : 0);
    b.ergebnis = istNull(rest) ? LucasErgebnis::Prim : LucasErgebnis::Zusammengesetzt;
    b.sekunden = Timer() - start;
    // The run is complete; its checkpoint (written by this run or read by it) is spent.
    if (auftrag.pruefpunkte) std::remove(datei.c_str());
    return b;
}

}  // namespace sw
