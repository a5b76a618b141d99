// PgSpeicher: the Mersenne rows in one table t_Prim on a PostgreSQL server, shared by every
// machine that searches. The columns are those of the segment files; Primzahl is the primary
// key. The table is created (and later migrated) through PgSchema when a program first
// connects. Segments remain a numbering only: opening one needs no new connection, and the
// counts of "the open segment" are bounded by its exponents, as a file would bound them.
#pragma once

#include <memory>
#include <string>

#include "db/PgVerbindung.h"
#include "mersenne/MersenneSpeicher.h"

namespace sw {

class PgSpeicher : public MersenneSpeicher {
public:
    explicit PgSpeicher(std::string url);
    ~PgSpeicher() override;

    std::string Ort() const override;
    std::string SegmentOrt(int32_t) const override { return Ort(); }
    bool SegmentVorhanden(int32_t) const override { return true; }
    void Oeffnen(int32_t segment) override;
    void Schliessen() override;
    bool Offen() const override { return offen_; }
    PrimZeile Lesen(int32_t p) override;
    void Ablegen(int32_t p, const PrimZeile& z) override;
    void AblegenBlock(const ZeilenBlock& zeilen) override;
    void Beginnen() override;
    void Festschreiben() override;
    void Verwerfen() noexcept override;
    int64_t Anzahl(int64_t ab, int64_t bis, DbStatusWahl status) override;
    bool Durchlaufen(int64_t von, int64_t bis, DbStatusWahl status, bool mitTexten, const ZeilenAufruf& f) override;

    // The connection, made (with the schema brought up to date) when there is none.
    PgVerbindung& Verbindung();

private:
    std::string url_;
    std::unique_ptr<PgVerbindung> v_;
    int32_t segment_ = DbKeinSegment;
    bool offen_ = false;
};

// The schema steps of the Mersenne table (part "mersenne" of t_Version).
int PgMersenneSchemaSicherstellen(PgVerbindung& v);

}  // namespace sw
