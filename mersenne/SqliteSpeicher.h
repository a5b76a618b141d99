// SqliteSpeicher: the Mersenne rows in SQLite files, one per segment (Prim.db, Prim1.db, ...
// in a folder). A missing file is created with the schema; a file of any other schema is
// refused and never altered. Files run in WAL mode with synchronous FULL: readers never block
// a search, and every commit survives a power failure.
#pragma once

#include <string>

#include "mersenne/DbAnweisung.h"
#include "mersenne/MersenneSpeicher.h"

struct sqlite3;

namespace sw {

class SqliteSpeicher : public MersenneSpeicher {
public:
    // ordner ends in "/"; "" is the program's folder (ProgrammPfad) as it is when used.
    explicit SqliteSpeicher(std::string ordner);
    ~SqliteSpeicher() override;

    std::string Ort() const override;
    std::string SegmentOrt(int32_t segment) const override;
    bool SegmentVorhanden(int32_t segment) const override;
    void Oeffnen(int32_t segment) override;
    void Schliessen() override;
    bool Offen() const override { return db_ != nullptr; }
    PrimZeile Lesen(int32_t p) override;
    void Ablegen(int32_t p, const PrimZeile& z) override;
    void Beginnen() override;
    void Festschreiben() override;
    void Verwerfen() noexcept override;
    int64_t Anzahl(int64_t ab, int64_t bis, DbStatusWahl status) override;
    bool Durchlaufen(int64_t von, int64_t bis, DbStatusWahl status, bool mitTexten, const ZeilenAufruf& f) override;
    void WartezeitSetzen(int32_t millisekunden) override;

    sqlite3* Verbindung() const { return db_; }

private:
    void ausfuehren(const char* sql);
    void schemaPruefen();

    std::string ordner_;
    sqlite3* db_ = nullptr;
    std::string pfad_;            // file of db_
    int32_t wartezeit_ = 3000;    // a GUI may wait a few seconds for a writer, not longer
    DbAnweisung lesen_, schreiben_;
};

// The condition of a status choice as an SQL tail (" AND Mersenne > 0"; "" for all).
const char* DbStatusBedingung(DbStatusWahl status);

}  // namespace sw
