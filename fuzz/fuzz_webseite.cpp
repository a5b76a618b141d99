// A saved factor page imported into a fresh database: it is refused or imported, every row it
// leaves has status 2 and only divisors of 2^p - 1, and importing it a second time changes
// nothing.
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "FuzzUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "mersenne/DbImport.h"
#include "mersenne/basDB.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    const std::string ordner = fuzz::Umgebung() + "db/";
    std::filesystem::remove_all(ordner);
    std::filesystem::create_directories(ordner);
    DbOrdnerSetzen(ordner);
    fuzz::DateiSchreiben("seite.html", daten, groesse);
    const std::string seite = fuzz::Umgebung() + "seite.html";
    try {
        WebseiteImportieren(seite);
    } catch (const Laufzeitfehler&) {
        DbSchliessen();
        return 0;  // no head line: refused with a message
    }
    DbOeffnenPflicht(0);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(DbVerbindung(), "SELECT Primzahl, Mersenne, Teiler FROM t_Prim", -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
        const auto p = int32_t(sqlite3_column_int64(s, 0));
        fuzz::Pruefen(sqlite3_column_int(s, 1) == 2, "an imported row has status 2");
        const std::string liste = reinterpret_cast<const char*>(sqlite3_column_text(s, 2));
        for (size_t a = 0; a <= liste.size();) {
            const size_t e = std::min(liste.find('x', a), liste.size());
            fuzz::Pruefen(TeiltMersenne(liste.substr(a, e - a), p), "every stored divisor divides 2^p - 1");
            a = e + 1;
        }
    }
    sqlite3_finalize(s);
    const ImportBericht zweimal = WebseiteImportieren(seite);
    fuzz::Pruefen(zweimal.neu == 0 && zweimal.weitereTeiler == 0, "a second import adds nothing");
    DbSchliessen();
    return 0;
}
