// DbImport: divisor lists from outside into the Mersenne database. Two sources: a plain list
// of "exponent,factor" lines, and a page saved from a published table of factors (a head line
// "Exponent,Factor", then "exponent factor ..." lines up to "</pre>"). Each factor is checked
// to divide 2^p - 1 before it is stored, so a damaged file cannot put a false divisor into the
// database. The line parsers are free functions so that they can be fuzzed on their own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sw {

enum class ImportArt { Leer, Gut, Kaputt };  // Leer: a line to skip
struct ImportZeile {
    ImportArt art = ImportArt::Leer;
    int32_t exponent = 0;
    std::string faktor;  // decimal digits
    std::string grund;   // why a line is Kaputt
};

// "exponent,factor", blanks around both trimmed. A line without a comma is Leer; a line whose
// parts are not plain numbers, whose exponent is not in 2..GrenzeLong or whose factor does not
// divide 2^p - 1 is Kaputt. (A length rule would refuse true divisors such as 23 of 2^11 - 1;
// the division decides exactly.)
ImportZeile ListenZeileLesen(std::string_view zeile);
// A line of the page: the exponent up to the first blank (or comma), the factor up to the next
// one. A line without a separator is Leer; the rest is judged as in ListenZeileLesen.
ImportZeile WebZeileLesen(std::string_view zeile);
// True when q (decimal digits, above 1) divides 2^p - 1.
bool TeiltMersenne(const std::string& q, int32_t p);
// True when the file has a line beginning "Exponent,Factor" (a saved page, not a plain list).
bool IstWebseite(const std::string& datei);

struct ImportBericht {
    int64_t neu = 0;            // exponents that got their first divisor
    int64_t weitereTeiler = 0;  // divisors added to an exponent that had one
    int64_t bekannt = 0;        // divisors that stood there already, or exponents of primes
    int64_t uebersprungen = 0;  // lines of the page that are no divisor
};

// Imports the plain list line by line, committing about once a second. A damaged line stops
// the import: everything before it is kept, and the Laufzeitfehler names the line and its
// number (text 1510). A new exponent gets status 2 and the limit GrenzeLong; an exponent with
// divisors gets the new one added to its list.
ImportBericht ListeImportieren(const std::string& datei);
// Imports the page: lines without a divisor are counted and skipped; new rows carry a made-up
// 2008 time stamp and keep the limit they had.
ImportBericht WebseiteImportieren(const std::string& datei);
// Decides by IstWebseite.
ImportBericht DateiImportieren(const std::string& datei);

}  // namespace sw
