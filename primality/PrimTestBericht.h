// PrimTestBericht: how a prime test run reports. The window shows the lines in its result
// label and the limit in its field; sw-cli prints the verdict; the tests record it. The
// verdict is kept beside the line, so that a caller never has to read it back from the text.
#pragma once

#include <string>

namespace sw {

// The result line, the limit as the run took it, and the stop button's visibility.
class PrimTestAnzeige {
public:
    virtual ~PrimTestAnzeige() = default;
    virtual void Hinweis(const std::string& text) = 0;
    virtual void GrenzeZeigen(const std::string& /*text*/) {}
    virtual void StoppZeigen(bool /*sichtbar*/) {}
};

enum class PrimUrteil {
    Offen,              // nothing decided (yet)
    Prim,
    WahrscheinlichPrim, // the number passed a test that composites can pass too
    Zusammengesetzt,
    Keines,             // 0 and 1
    Abgebrochen,
};

struct PrimTestErgebnis {
    PrimUrteil urteil = PrimUrteil::Offen;
    // A prime proved by division, by BPSW below 2^64 or by a proof; a composite is always
    // certain (a factor or a failed test that every prime passes).
    bool bewiesen = false;
    std::string text;  // the last verdict line
};

// The road of the lines: a verdict is shown and kept, an intermediate state only shown.
class PrimTestBericht {
public:
    explicit PrimTestBericht(PrimTestAnzeige& anzeige) : anzeige_(anzeige) {}
    void Urteil(PrimUrteil urteil, bool bewiesen, const std::string& text) {
        ergebnis_ = {urteil, bewiesen, text};
        anzeige_.Hinweis(text);
    }
    void Zwischenstand(const std::string& text) { anzeige_.Hinweis(text); }
    PrimTestAnzeige& Anzeige() { return anzeige_; }
    const PrimTestErgebnis& Ergebnis() const { return ergebnis_; }

private:
    PrimTestAnzeige& anzeige_;
    PrimTestErgebnis ergebnis_;
};

}  // namespace sw
