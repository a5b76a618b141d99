// The status and statistics windows on a database of a million rows (every prime exponent from
// 3 to 15,485,863, four in ten with a divisor): the counts of the status bars, the class
// overview and the k statistics, each drawn as its chart, as one click does it. Target: under
// a second together. Against it, in the same run, the bare engine reading the same rows once
// (counter "bare_scan_s"), the least any answer from the file can cost.
#include <QApplication>

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "BenchRaster.h"
#include "mersenne/MersenneStatistik.h"
#include "mersenne/basDB.h"
#include "windows/Bild.h"
#include "windows/Saeulen.h"

namespace {

namespace fs = std::filesystem;
using Uhr = std::chrono::steady_clock;
constexpr int64_t kGrenze = 15485864;  // the millionth prime is 15,485,863
constexpr int64_t kSkala = 160000;     // about a hundred bars

std::string anlegen() {
    const fs::path o = fs::temp_directory_path() / ("sw-bench-status-" + std::to_string(getpid()));
    fs::remove_all(o);
    fs::create_directories(o);
    sw::DbOrdnerSetzen(o.string() + "/");
    sw::DbOeffnenPflicht(0);
    sqlite3* db = sw::DbVerbindung();
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO t_Prim VALUES (?1, ?2, ?3, 1000, ?4, '2026-01-01 00:00:00')", -1, &s, nullptr);
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    sw::PrimzahlenDurchlaufen(3, uint64_t(kGrenze), [&](uint64_t p) {
        // Not true divisors: the counts do not judge them, and the shape of the rows is real.
        const int64_t k = int64_t(p % 250) * 4 + int64_t(p % 3 == 1 ? 0 : 3);
        const bool geteilt = p % 5 < 2;
        sqlite3_bind_int64(s, 1, int64_t(p));
        sqlite3_bind_int64(s, 2, geteilt ? 2 : 0);
        const std::string q = geteilt ? std::to_string(2 * k * int64_t(p) + 1) : "0";
        sqlite3_bind_text(s, 3, q.c_str(), -1, SQLITE_TRANSIENT);
        const std::string ks = std::to_string(k);
        if (geteilt) {
            sqlite3_bind_text(s, 4, ks.c_str(), -1, SQLITE_TRANSIENT);
        } else {
            sqlite3_bind_null(s, 4);
        }
        sqlite3_step(s);
        sqlite3_reset(s);
        return true;
    });
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_finalize(s);
    sw::DbSchliessen();
    return o.string();
}

double bareScan(const std::string& pfad) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(pfad.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(db, "SELECT Primzahl, Mersenne, Teiler, FaktorS FROM t_Prim", -1, &s, nullptr);
    const auto anfang = Uhr::now();
    int64_t summe = 0;
    while (sqlite3_step(s) == SQLITE_ROW) summe += sqlite3_column_int64(s, 1) + sqlite3_column_bytes(s, 2);
    benchmark::DoNotOptimize(summe);
    const double sek = std::chrono::duration<double>(Uhr::now() - anfang).count();
    sqlite3_finalize(s);
    sqlite3_close(db);
    return sek;
}

void StatusUndStatistik(benchmark::State& state) {
    sw::bench::RasterBauen(kGrenze);
    const std::string ordner = anlegen();
    sw::Bild bild;
    bild.resize(900, 450);
    for (auto _ : state) {
        sw::SaeulenDiagramm status, klassen, k;
        for (const sw::StatusStrecke& s : sw::StatusStrecken(0, kGrenze, kSkala)) {
            status.saeulen.push_back({QString::number(s.von), 100.0 * double(s.erledigt) / double(s.primzahlen),
                                      QString::fromStdString(sw::AnteilText(s.erledigt, s.primzahlen)), {}});
        }
        sw::SaeulenZeichnen(bild, status);
        const sw::KlassenUebersicht u = sw::StatusKlassen(0, kGrenze);
        for (int64_t n : {u.q1, u.q7, u.p3Eins, u.p3Zwei, u.plus, u.minus}) klassen.saeulen.push_back({"", double(n), "", {}});
        sw::SaeulenZeichnen(bild, klassen);
        for (const sw::KSchritt& s : sw::KStatistik(3, kGrenze - 1, kSkala, 0)) {
            k.saeulen.push_back({QString::number(s.von), double(s.alle) / double(s.primzahlen), "", {}});
        }
        sw::SaeulenZeichnen(bild, k);
    }
    state.counters["bare_scan_s"] = bareScan(ordner + "/Prim.db");
    sw::DbOrdnerSetzen("");
    fs::remove_all(ordner);
}
BENCHMARK(StatusUndStatistik)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
