// The table window's reading of a list: any text splits into rows, every column sorts both
// ways into an order the comparison agrees with, no row is lost, and the comparison is
// antisymmetric for any two cells.
#include <algorithm>
#include <string>
#include <vector>

#include "FuzzUmgebung.h"
#include "frame/TabellenText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    const std::string text(reinterpret_cast<const char*>(daten), groesse);
    std::vector<std::string> zeilen;
    size_t anfang = 0;
    for (size_t ende; (ende = text.find('\n', anfang)) != std::string::npos; anfang = ende + 1) {
        zeilen.push_back(text.substr(anfang, ende - anfang));
    }
    zeilen.push_back(text.substr(anfang));
    const std::vector<TabellenZeile> tabelle = TabelleZerlegen(zeilen);
    fuzz::Pruefen(tabelle.size() <= zeilen.size(), "no more rows than lines");

    std::vector<TabellenZeile> erwartet = tabelle;
    std::sort(erwartet.begin(), erwartet.end());
    for (size_t spalte = 0; spalte < 3; ++spalte) {
        for (bool absteigend : {false, true}) {
            std::vector<TabellenZeile> t = tabelle;
            TabelleSortieren(t, spalte, absteigend);
            std::vector<TabellenZeile> gleich = t;
            std::sort(gleich.begin(), gleich.end());
            fuzz::Pruefen(gleich == erwartet, "sorting keeps every row");
            for (size_t i = 0; i + 1 < t.size(); ++i) {
                const std::string a = spalte < t[i].size() ? t[i][spalte] : "";
                const std::string b = spalte < t[i + 1].size() ? t[i + 1][spalte] : "";
                const int c = ZellenVergleich(a, b);
                fuzz::Pruefen(c == -ZellenVergleich(b, a), "comparison antisymmetric");
                if (!absteigend) fuzz::Pruefen(c <= 0, "ascending order holds");
            }
        }
    }
    TabelleCsv(tabelle);
    return 0;
}
