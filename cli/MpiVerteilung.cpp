// The MPI side of the piece jobs: one counter in a window of process 0 hands out the pieces
// (MPI_Fetch_and_op, so no process has to stop and answer), results travel as byte messages
// that carry their piece number in front.
#include "MpiVerteilung.h"

#include <mpi.h>

#include <climits>
#include <cstdlib>
#include <list>
#include <map>

#include "CliUmgebung.h"

namespace sw::cli {

namespace {

int anzahl = 1, rang = 0;
bool beigetreten = false;
bool verteilt = false;
constexpr int ErgebnisMarke = 1;
// Results a helper may have on the way before it waits for process 0 to take one: enough to
// keep working while process 0 is inside a piece of its own, few enough to bound the memory.
constexpr size_t OffeneSendungen = 4;

// The launchers of OpenMPI (mpirun, and srun through PMIx or PMI2) name the process count
// in the environment; without one of them this is a plain start.
bool ImMpiJob() {
    return std::getenv("OMPI_COMM_WORLD_SIZE") || std::getenv("PMIX_RANK") || std::getenv("PMI_RANK");
}

uint64_t naechstesStueck(MPI_Win fenster) {
    const uint64_t eins = 1;
    uint64_t frei = 0;
    MPI_Fetch_and_op(&eins, &frei, MPI_UINT64_T, 0, 0, MPI_SUM, fenster);
    MPI_Win_flush(0, fenster);
    return frei;
}

// Process 0: the results that arrived before the pieces in front of them.
class Sammler {
public:
    Sammler(uint64_t stuecke, const std::function<void(uint64_t, const std::string&)>& ergebnis)
        : stuecke_(stuecke), ergebnis_(ergebnis) {}

    void abgeben(uint64_t i, std::string daten) {
        wartend_.emplace(i, std::move(daten));
        for (auto it = wartend_.begin(); it != wartend_.end() && it->first == naechstes_; it = wartend_.erase(it)) {
            ergebnis_(naechstes_++, it->second);
        }
    }
    // Takes every result that has arrived; with warten at least one.
    void empfangen(bool warten) {
        for (;;) {
            MPI_Status status;
            int da = 0;
            if (warten) {
                MPI_Probe(MPI_ANY_SOURCE, ErgebnisMarke, MPI_COMM_WORLD, &status);
                da = 1;
                warten = false;
            } else {
                MPI_Iprobe(MPI_ANY_SOURCE, ErgebnisMarke, MPI_COMM_WORLD, &da, &status);
            }
            if (!da) return;
            int laenge = 0;
            MPI_Get_count(&status, MPI_BYTE, &laenge);
            std::string daten(size_t(laenge), '\0');
            MPI_Recv(daten.data(), laenge, MPI_BYTE, status.MPI_SOURCE, ErgebnisMarke, MPI_COMM_WORLD, MPI_STATUS_IGNORE);
            size_t pos = 0;
            const uint64_t i = WortLesen(daten, pos);
            abgeben(i, daten.substr(pos));
        }
    }
    bool fertig() const { return naechstes_ == stuecke_; }

private:
    uint64_t stuecke_;
    const std::function<void(uint64_t, const std::string&)>& ergebnis_;
    std::map<uint64_t, std::string> wartend_;
    uint64_t naechstes_ = 0;
};

// A helper: its results go out without waiting, a few at a time.
class Sender {
public:
    void senden(uint64_t i, const std::string& ergebnis) {
        std::string daten;
        WortAnhaengen(daten, i);
        daten += ergebnis;
        if (daten.size() > size_t(INT_MAX)) throw CliFehler("a piece's result exceeds 2 GB; use more pieces (SW_MPI_PIECES)");
        offen_.push_back({MPI_REQUEST_NULL, std::move(daten)});
        Sendung& s = offen_.back();
        MPI_Isend(s.daten.data(), int(s.daten.size()), MPI_BYTE, 0, ErgebnisMarke, MPI_COMM_WORLD, &s.anfrage);
        while (!offen_.empty()) {
            int fertig = 0;
            if (offen_.size() > OffeneSendungen) {
                MPI_Wait(&offen_.front().anfrage, MPI_STATUS_IGNORE);
                fertig = 1;
            } else {
                MPI_Test(&offen_.front().anfrage, &fertig, MPI_STATUS_IGNORE);
            }
            if (!fertig) break;
            offen_.pop_front();
        }
    }
    ~Sender() {
        for (Sendung& s : offen_) MPI_Wait(&s.anfrage, MPI_STATUS_IGNORE);
    }

private:
    struct Sendung {
        MPI_Request anfrage;
        std::string daten;
    };
    std::list<Sendung> offen_;  // a list: a sent buffer must not move
};

}  // namespace

MpiSitzung::MpiSitzung(int& argc, char**& argv) {
    if (!ImMpiJob()) return;
    MPI_Init(&argc, &argv);
    beigetreten = true;
    MPI_Comm_size(MPI_COMM_WORLD, &anzahl);
    MPI_Comm_rank(MPI_COMM_WORLD, &rang);
}

MpiSitzung::~MpiSitzung() {
    if (beigetreten) MPI_Finalize();
}

int MpiAnzahl() { return anzahl; }
int MpiRang() { return rang; }
bool MpiVerteiltLaeuft() { return verteilt; }

void MpiJobAbbrechen(int code) {
    std::fflush(stdout);
    std::fflush(stderr);
    MPI_Abort(MPI_COMM_WORLD, code);
    std::exit(code);
}

void MpiNebenbei() {
    if (!verteilt || rang != 0) return;
    int da = 0;
    MPI_Iprobe(MPI_ANY_SOURCE, MPI_ANY_TAG, MPI_COMM_WORLD, &da, MPI_STATUS_IGNORE);
}

void StueckeVerteilen(uint64_t stuecke, const std::function<std::string(uint64_t)>& arbeit,
                      const std::function<void(uint64_t, const std::string&)>& ergebnis) {
    if (anzahl == 1) {
        for (uint64_t i = 0; i < stuecke; ++i) ergebnis(i, arbeit(i));
        return;
    }
    uint64_t zaehler = 0;
    MPI_Win fenster;
    MPI_Win_create(rang == 0 ? &zaehler : nullptr, rang == 0 ? MPI_Aint(sizeof zaehler) : 0, int(sizeof zaehler),
                   MPI_INFO_NULL, MPI_COMM_WORLD, &fenster);
    MPI_Win_lock_all(0, fenster);
    // From here on a failure of one process cannot be met by the others: see MpiJobAbbrechen.
    verteilt = true;
    if (rang == 0) {
        Sammler sammler(stuecke, ergebnis);
        for (uint64_t i; (i = naechstesStueck(fenster)) < stuecke;) {
            sammler.abgeben(i, arbeit(i));
            sammler.empfangen(false);
        }
        while (!sammler.fertig()) sammler.empfangen(true);
    } else {
        Sender sender;
        for (uint64_t i; (i = naechstesStueck(fenster)) < stuecke;) sender.senden(i, arbeit(i));
    }
    MPI_Win_unlock_all(fenster);
    MPI_Win_free(&fenster);
    verteilt = false;
}

}  // namespace sw::cli
