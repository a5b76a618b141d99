#include "arith/WortRechner.h"

#include <string>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// The kernel's routines of one width, so that both widths share one calculator.
struct Breite64 {
    using Z = Zahl64;
    static void ausHyp(Z& z, const Hyp& h) { aMov64Hyp(&z, h); }
    static Hyp alsHyp(const Z& z) {
        Hyp h(2);
        aMovHyp64(h, &z);
        return h;
    }
    static void add(Z& s, const Z& a, const Z& b) { aAdd64(&s, &a, &b); }
    static void sub(Z& a, const Z& b) { aSub6464(&a, &b); }
    static void mul(Z& a, const Z& b) { aMul6464(&a, &b); }
    static void div(Z& q, Z& a, const Z& b) { aDiv6464(&q, &a, &b); }
    static int32_t cmp(const Z& a, const Z& b) { return aCMP6464(&a, &b); }
    static bool null(const Z& a) { return aCMP6432(&a, 0) == 0; }
};

struct Breite128 {
    using Z = Zahl128;
    static void ausHyp(Z& z, const Hyp& h) { aMov128Hyp(&z, h); }
    static Hyp alsHyp(const Z& z) {
        Hyp h(4);
        aMovHyp128(h, &z);
        return h;
    }
    static void add(Z& s, const Z& a, const Z& b) { aAdd128(&s, &a, &b); }
    static void sub(Z& a, const Z& b) { aSub128128(&a, &b); }
    static void mul(Z& a, const Z& b) { aMul128128(&a, &b); }
    static void div(Z& q, Z& a, const Z& b) { aDiv128128(&q, &a, &b); }
    static int32_t cmp(const Z& a, const Z& b) { return aCMP128128(&a, &b); }
    static bool null(const Z& a) { return aCMP12832(&a, 0) == 0; }
};

[[noreturn]] void ueberlauf(int key, int32_t breite) {
    throw Laufzeitfehler(FehlerUeberlauf, TextP1(key, std::to_string(breite)));
}

template <typename B>
Hyp rechnen(const Hyp& ha, const Hyp& hb, WortOp op, int32_t breite) {
    typename B::Z a{}, b{}, e{};
    B::ausHyp(a, ha);
    B::ausHyp(b, hb);
    if ((op == WortOp::Div || op == WortOp::Mod) && B::null(b)) throw Laufzeitfehler(FehlerDivisionDurchNull, Text(2240));
    switch (op) {
        case WortOp::Plus:
            B::add(e, a, b);
            if (B::cmp(e, a) < 0) ueberlauf(2241, breite);  // the sum wrapped past 0
            return B::alsHyp(e);
        case WortOp::Minus:
            if (B::cmp(a, b) < 0) ueberlauf(2242, breite);
            e = a;
            B::sub(e, b);
            return B::alsHyp(e);
        case WortOp::Mal: {
            e = a;
            B::mul(e, b);
            // The cut product divided by b gives a back exactly when nothing was cut off.
            if (!B::null(b)) {
                typename B::Z q{}, r = e;
                B::div(q, r, b);
                if (B::cmp(q, a) != 0 || !B::null(r)) ueberlauf(2241, breite);
            }
            return B::alsHyp(e);
        }
        case WortOp::Div:
        case WortOp::Mod: {
            typename B::Z q{};
            e = a;
            B::div(q, e, b);
            return B::alsHyp(op == WortOp::Div ? q : e);
        }
    }
    return Hyp();
}

}  // namespace

Hyp WortRechnen(const Hyp& a, const Hyp& b, WortOp op, int32_t breite) {
    if (breite != 64 && breite != 128) throw Laufzeitfehler(FehlerUeberlauf, TextP1(2243, std::to_string(breite)));
    for (const Hyp* h : {&a, &b}) {
        if (aGetHighBitHyp(*h) >= breite) throw Laufzeitfehler(FehlerUeberlauf, TextP1(2244, std::to_string(breite)));
    }
    return breite == 64 ? rechnen<Breite64>(a, b, op, breite) : rechnen<Breite128>(a, b, op, breite);
}

bool WortOpLesen(const std::string& zeichen, WortOp& op) {
    if (zeichen == "+") op = WortOp::Plus;
    else if (zeichen == "-") op = WortOp::Minus;
    else if (zeichen == "*" || zeichen == "x") op = WortOp::Mal;
    else if (zeichen == "/" || zeichen == "div") op = WortOp::Div;
    else if (zeichen == "%" || zeichen == "mod") op = WortOp::Mod;
    else return false;
    return true;
}

}  // namespace sw
