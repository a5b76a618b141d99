// One exponent of the divisor search as the database sees it: read the row, write it back, in
// a transaction committed once a second. Against it, in the same run, the bare engine: one
// prepared upsert per row on a table of the same shape. The counter "ratio" is our time per
// exponent over the bare upsert; the search itself spends microseconds to seconds per exponent,
// so anything near a few microseconds here is out of its way.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "frame/basZentral.h"
#include "mersenne/basDB.h"

namespace {

namespace fs = std::filesystem;
using Uhr = std::chrono::steady_clock;

std::string frischerOrdner() {
    const fs::path o = fs::temp_directory_path() / ("sw-bench-db-" + std::to_string(getpid()));
    fs::remove_all(o);
    fs::create_directories(o);
    return o.string() + "/";
}

// Seconds per row for the bare engine: prepared upsert in one transaction.
double RohProZeile(const std::string& ordner, int zeilen) {
    sqlite3* db = nullptr;
    sqlite3_open((ordner + "roh.db").c_str(), &db);
    sqlite3_exec(db, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; CREATE TABLE t (p INTEGER PRIMARY KEY, m, t, k)",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO t VALUES (?1, 0, '0', ?2) ON CONFLICT(p) DO UPDATE SET k = excluded.k", -1, &s,
                       nullptr);
    const auto anfang = Uhr::now();
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    for (int i = 0; i < zeilen; ++i) {
        sqlite3_bind_int64(s, 1, 1000003 + 2 * i);
        sqlite3_bind_int64(s, 2, 5000);
        sqlite3_step(s);
        sqlite3_reset(s);
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    const double sek = std::chrono::duration<double>(Uhr::now() - anfang).count();
    sqlite3_finalize(s);
    sqlite3_close(db);
    return sek / zeilen;
}

void LesenUndSchreiben(benchmark::State& state) {
    const std::string ordner = frischerOrdner();
    sw::DbOrdnerSetzen(ordner);
    const double roh = RohProZeile(ordner, 100000);
    int32_t p = 1000003;
    int32_t m, pot;
    std::string t;
    const auto anfang = Uhr::now();
    {
        sw::DbTransaktion trans;
        for (auto _ : state) {
            sw::PrimLesen(p, m, t, pot);
            sw::PrimSchreiben(p, m, t, 5000);
            trans.FestschreibenNach(1.0);
            p += 2;
        }
        trans.Festschreiben();
    }
    const double unsere = std::chrono::duration<double>(Uhr::now() - anfang).count() / double(state.iterations());
    sw::DbSchliessen();
    sw::DbOrdnerSetzen("");
    fs::remove_all(ordner);
    state.counters["bare_upsert_us"] = roh * 1e6;
    state.counters["ratio"] = unsere / roh;
}
BENCHMARK(LesenUndSchreiben)->Unit(benchmark::kMicrosecond)->Iterations(100000)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
