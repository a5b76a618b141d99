// sw-cli quadrat: the tools of the squares window.
//   quadrat sqrt N [--root K] [--mod P]   integer k-th root and rest; with --mod the square roots mod a prime
//   quadrat jacobi A N                    the Jacobi symbol (A / N)
//   quadrat inverse A M                   the inverse of A mod M, or the gcd that prevents it
//   quadrat primroot P [--order A]        the least primitive root of P, the primes of P-1, the order of A
//   quadrat bytes N | --text T | --hex H  a number as hex bytes (lowest first) and text, and back
//   quadrat word A OP B [--bits 64|128]   + - * / mod in an unsigned fixed width, overflow refused
//   quadrat fft A B [--full]              the FFT product of the byte arrays against GMP's
// Every number may be a formula (2^127-1). Large values are JSON strings: readers keep them whole.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "arith/ByteZahl.h"
#include "arith/HypText.h"
#include "arith/WortRechner.h"
#include "primality/QuadratWerkzeug.h"
#include "zahlkern/zahlkern.h"

namespace sw::cli {

namespace {

struct QuadratFrage {
    std::string a, b, op, mod, ordnung, text, hex;
    int64_t k = 2;
    int32_t bits = 64;
    bool voll = false, json = false;
};

std::string T(const Hyp& h) { return Hyp2Text(h); }

void ausgeben(const QuadratFrage& f, JsonObjekt& j, const std::string& zeilen) {
    if (f.json) {
        std::printf("%s\n", j.Ende().c_str());
    } else {
        std::printf("%s", zeilen.c_str());
    }
}

void wurzel(const QuadratFrage& f) {
    const Hyp n = QuadratEingabe(f.a, "N");
    JsonObjekt j;
    j.Text("n", T(n));
    if (!f.mod.empty()) {
        const Hyp p = QuadratEingabe(f.mod, "P");
        j.Text("p", T(p));
        const std::optional<Hyp> r = WurzelModP(n, p);
        if (!r) {
            j.Roh("roots", "[]");
            ausgeben(f, j, "no root: N is a quadratic non-residue mod P (Legendre -1)\n");
            return;
        }
        Hyp zweite(p);
        aSubHypHyp(zweite, *r);
        if (aCmpHyp32(zweite, 0) == 0 || aCmpHypHyp(zweite, p) == 0) zweite = *r;  // 0 and p = 2 have one root
        const bool eine = aCmpHypHyp(zweite, *r) == 0;
        j.Roh("roots", "[" + JsonObjekt::Zeichenkette(T(*r)) + (eine ? "" : "," + JsonObjekt::Zeichenkette(T(zweite))) + "]");
        ausgeben(f, j, "roots: " + T(*r) + (eine ? "" : " " + T(zweite)) + "\n");
        return;
    }
    const KWurzel w = KteWurzel(n, f.k);
    const bool exakt = aCmpHyp32(w.rest, 0) == 0;
    j.Zahl("k", std::to_string(f.k)).Text("root", T(w.wurzel)).Text("rest", T(w.rest)).Wahr("exact", exakt);
    ausgeben(f, j, "root: " + T(w.wurzel) + "\nrest: " + T(w.rest) + "\nexact: " + (exakt ? "yes" : "no") + "\n");
}

void jacobi(const QuadratFrage& f) {
    const Hyp a = QuadratEingabe(f.a, "A"), n = QuadratEingabe(f.b, "N");
    const int32_t s = Jacobi(a, n);
    JsonObjekt j;
    j.Text("a", T(a)).Text("n", T(n)).Zahl("jacobi", std::to_string(s));
    ausgeben(f, j, std::to_string(s) + "\n");
}

void inverse(const QuadratFrage& f) {
    const Hyp a = QuadratEingabe(f.a, "A"), m = QuadratEingabe(f.b, "M");
    const ModInverseErgebnis e = ModInverse(a, m);
    const bool da = aCmpHyp32(e.ggt, 1) == 0;
    JsonObjekt j;
    j.Text("a", T(a)).Text("m", T(m)).Text("gcd", T(e.ggt));
    if (da) {
        j.Text("inverse", T(e.inverse));
    } else {
        j.Roh("inverse", "null");
    }
    j.Text("routine", e.wort ? "ModInverseLong" : "HypModInverse");
    ausgeben(f, j, da ? "inverse: " + T(e.inverse) + "\n" : "no inverse: gcd(A, M) = " + T(e.ggt) + "\n");
}

void primwurzel(const QuadratFrage& f) {
    const Hyp p = QuadratEingabe(f.a, "P");
    const Primwurzel w = KleinstePrimitivwurzel(p);
    std::string liste, json;
    for (const Hyp& q : w.faktoren) {
        liste += (liste.empty() ? "" : " ") + T(q);
        json += (json.empty() ? "" : ",") + JsonObjekt::Zeichenkette(T(q));
    }
    JsonObjekt j;
    j.Text("p", T(p)).Text("root", T(w.wurzel)).Roh("factors", "[" + json + "]");
    std::string zeilen = "least primitive root: " + T(w.wurzel) + "\nprimes of p-1: " + liste + "\n";
    if (!f.ordnung.empty()) {
        const Hyp a = QuadratEingabe(f.ordnung, "A");
        const Hyp o = Ordnung(a, p, w.faktoren);
        j.Text("a", T(a)).Text("order", T(o));
        zeilen += "order of " + T(a) + ": " + T(o) + "\n";
    }
    ausgeben(f, j, zeilen);
}

void bytes(const QuadratFrage& f) {
    const int wege = int(!f.a.empty()) + int(!f.text.empty()) + int(!f.hex.empty());
    if (wege != 1) throw CliFehler("quadrat bytes: give exactly one of N, --text or --hex");
    const Hyp n = !f.text.empty() ? TextZahl(f.text) : !f.hex.empty() ? HexBytesZahl(f.hex) : QuadratEingabe(f.a, "N");
    const BytesAlsText t = ZahlText(n);
    JsonObjekt j;
    j.Text("number", T(n)).Text("bytes", BytesHex(n));
    if (t.lesbar) j.Text("text", t.text);
    ausgeben(f, j, "number: " + T(n) + "\nbytes: " + BytesHex(n) + "\n" + (t.lesbar ? "text: " + t.text + "\n" : "text: (no readable UTF-8)\n"));
}

void wort(const QuadratFrage& f) {
    WortOp op;
    if (!WortOpLesen(f.op, op)) throw CliFehler("quadrat word: OP must be + - * / or mod, not '" + f.op + "'");
    const Hyp a = QuadratEingabe(f.a, "A"), b = QuadratEingabe(f.b, "B");
    const Hyp e = WortRechnen(a, b, op, f.bits);
    JsonObjekt j;
    j.Zahl("bits", std::to_string(f.bits)).Text("a", T(a)).Text("op", f.op).Text("b", T(b)).Text("result", T(e));
    ausgeben(f, j, T(e) + "\n");
}

void fft(const QuadratFrage& f) {
    const Hyp a = QuadratEingabe(f.a, "A"), b = QuadratEingabe(f.b, "B");
    const FftVergleich v = FftGegenGmp(a, b);
    const std::string produkt = T(v.produkt);
    JsonObjekt j;
    j.Zahl("points", std::to_string(v.punkte)).Zahl("digits", std::to_string(produkt.size()));
    j.Wahr("equal", v.gleich).Kommazahl("max_roundoff", v.rundungsfehler);
    j.Kommazahl("fft_seconds", v.sekundenFft).Kommazahl("gmp_seconds", v.sekundenGmp);
    if (f.voll) j.Text("product", produkt);
    char zeilen[300];
    std::snprintf(zeilen, sizeof zeilen,
                  "points: %d\ndigits: %zu\nequal to GMP: %s\nmax round-off: %.3g\nFFT: %.6f s, GMP: %.6f s\n", v.punkte,
                  produkt.size(), v.gleich ? "yes" : "NO", v.rundungsfehler, v.sekundenFft, v.sekundenGmp);
    ausgeben(f, j, std::string(zeilen) + (f.voll ? "product: " + produkt + "\n" : ""));
}

}  // namespace

void QuadratBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<QuadratFrage>();
    CLI::App* q = app.add_subcommand("quadrat", "squares, roots mod p, inverses, primitive roots, bytes, word arithmetic, FFT product");
    q->require_subcommand(1);
    auto neu = [&](const char* name, const char* hilfe, void (*tun)(const QuadratFrage&)) {
        CLI::App* s = q->add_subcommand(name, hilfe);
        s->add_flag("--json", f->json, "print one JSON object");
        s->callback([f, tun, &auftrag]() { auftrag = [f, tun]() { tun(*f); }; });
        return s;
    };
    CLI::App* s = neu("sqrt", "integer k-th root and rest of N; with --mod P the square roots of N mod the prime P", wurzel);
    s->add_option("N", f->a, "the number (digits or a formula)")->required();
    s->add_option("--root", f->k, "the root's degree k, 2 to 1000000 (default 2)");
    s->add_option("--mod", f->mod, "a prime P: the square roots of N mod P (Tonelli-Shanks)");
    s = neu("jacobi", "the Jacobi symbol (A / N) for odd N > 1", jacobi);
    s->add_option("A", f->a, "the numerator")->required();
    s->add_option("N", f->b, "the odd denominator")->required();
    s = neu("inverse", "the inverse of A mod M, or the gcd of A and M that prevents it", inverse);
    s->add_option("A", f->a, "the number")->required();
    s->add_option("M", f->b, "the modulus, at least 2")->required();
    s = neu("primroot", "the least primitive root of the prime P and the primes of P-1", primwurzel);
    s->add_option("P", f->a, "the prime")->required();
    s->add_option("--order", f->ordnung, "also the multiplicative order of A mod P");
    s = neu("bytes", "a number as hex bytes, lowest first, and as text; or text or hex bytes as a number", bytes);
    s->add_option("N", f->a, "the number");
    s->add_option("--text", f->text, "a text whose UTF-8 bytes are the number's bytes");
    s->add_option("--hex", f->hex, "hex bytes, lowest first: '01 00 FF' or '0100FF'");
    s = neu("word", "A OP B in an unsigned word of 64 or 128 bits (OP: + - * / mod); overflow is refused", wort);
    s->add_option("A", f->a, "the first operand")->required();
    s->add_option("OP", f->op, "+ - * / or mod")->required();
    s->add_option("B", f->b, "the second operand")->required();
    s->add_option("--bits", f->bits, "64 (default) or 128");
    s = neu("fft", "the product of A and B by a complex FFT over their bytes, against GMP's", fft);
    s->add_option("A", f->a, "the first factor")->required();
    s->add_option("B", f->b, "the second factor")->required();
    s->add_flag("--full", f->voll, "print the product too");
}

}  // namespace sw::cli
