// MersenneSpeicher: where the rows of t_Prim are kept. basDB decides what a row says (status,
// divisors, k, limit, time stamp); a store only keeps rows. Two stores exist: the SQLite files,
// one per segment of MersenneDbSegment exponents in a folder (the default), and one table on
// a PostgreSQL server that several machines share. A store knows segments because the files
// do; the server keeps every segment in the same table and only bounds its counts by them, so
// that counting segment by segment adds up the same on both.
//
// Errors are Laufzeitfehler with a German message that names the file or the server address
// (never with a password). Reading walks never create anything in a folder.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "mersenne/basDB.h"

namespace sw {

using ZeilenAufruf = std::function<void(int32_t p, const PrimZeile& z)>;
using ZeilenBlock = std::vector<std::pair<int32_t, PrimZeile>>;

class MersenneSpeicher {
public:
    virtual ~MersenneSpeicher() = default;

    // The folder ("/" at the end) or the server address without its password.
    virtual std::string Ort() const = 0;
    // Where segment s is kept, for messages: its file, or the server address.
    virtual std::string SegmentOrt(int32_t segment) const = 0;
    // Whether segment s holds rows that can be read (its file exists; always on a server).
    virtual bool SegmentVorhanden(int32_t segment) const = 0;

    // Makes segment s the open one (creating its file or the server's table when missing);
    // throws its reason. Reopening the open segment is allowed.
    virtual void Oeffnen(int32_t segment) = 0;
    virtual void Schliessen() = 0;
    virtual bool Offen() const = 0;

    // The rows of the open segment. Lesen gives vorhanden = false for a missing row.
    virtual PrimZeile Lesen(int32_t p) = 0;
    virtual void Ablegen(int32_t p, const PrimZeile& z) = 0;
    // Many rows of the open segment at once (copies between stores).
    virtual void AblegenBlock(const ZeilenBlock& zeilen);

    // One transaction on the open segment. Festschreiben rolls back and throws when the
    // commit fails; Verwerfen never throws.
    virtual void Beginnen() = 0;
    virtual void Festschreiben() = 0;
    virtual void Verwerfen() noexcept = 0;

    // Rows of the open segment with ab <= Primzahl <= bis and the given status.
    virtual int64_t Anzahl(int64_t ab, int64_t bis, DbStatusWahl status) = 0;

    // Calls f for every row with von <= Primzahl <= bis and the given status, in ascending
    // order, over all segments, without changing the open one and without writing. mitTexten
    // false leaves Teiler, FaktorS and TimeStamp out (the walks that count only exponents are
    // several times faster without copying them). False when no segment of the range exists.
    virtual bool Durchlaufen(int64_t von, int64_t bis, DbStatusWahl status, bool mitTexten, const ZeilenAufruf& f) = 0;

    // How long a statement waits for another process's lock (milliseconds).
    virtual void WartezeitSetzen(int32_t) {}
};

// The store for a database location: a postgresql:// or postgres:// URL selects the server,
// anything else is a folder of SQLite segment files ("" the default folder).
std::unique_ptr<MersenneSpeicher> SpeicherFuer(const std::string& ort);

// The store behind basDB's operations (the one DbOrdnerSetzen chose).
MersenneSpeicher& DbSpeicher();

// Copies every row of `von` into `nach` exactly (fields and time stamps as they stand),
// replacing rows of the same exponent, in transactions of `block` rows. The number of rows
// copied.
int64_t DbKopieren(MersenneSpeicher& von, MersenneSpeicher& nach, size_t block = 20000);

}  // namespace sw
