// MpiVerteilung: range jobs of sw-cli spread over the processes of an MPI job (mpirun, srun).
// The range is cut into many more pieces than there are processes; each process takes the next
// free piece from a shared counter, so a fast machine simply takes more of them. Process 0
// works like the others and between its pieces collects the results, passing them on in piece
// order as soon as the pieces before them are in: counts are added exactly, lists are printed
// in the order one process would print them. Started without mpirun, or built without MPI,
// there is one process and every command runs as it always did.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace sw::cli {

// Joins the MPI job if the program was started as one of its processes (its launcher leaves
// its marks in the environment); alone it touches no MPI at all, so that sw-cli starts as fast
// as before. The destructor leaves the job.
class MpiSitzung {
public:
    MpiSitzung(int& argc, char**& argv);
    ~MpiSitzung();
    MpiSitzung(const MpiSitzung&) = delete;
    MpiSitzung& operator=(const MpiSitzung&) = delete;
};

// The number of processes of the job (1 alone) and this one's number (0 alone).
int MpiAnzahl();
int MpiRang();
// Every process but 0: it prints nothing and only helps with the range commands.
inline bool NebenRang() { return MpiRang() != 0; }
// Whether command (a subcommand's name) spreads its range over the processes; the other
// commands run on process 0 alone.
inline bool MpiBefehl(const std::string& befehl) {
    return befehl == "count" || befehl == "primes" || befehl == "twins" || befehl == "collatz-count";
}

// Runs pieces 0 .. stuecke-1 over all processes; arbeit(i) gives piece i's result as bytes. On
// process 0, ergebnis(i, bytes) is called for every piece in ascending order; the other
// processes return once no piece is left. An error or Ctrl-C inside a piece ends the whole
// job (the failing process says why), since the others could never finish it.
void StueckeVerteilen(uint64_t stuecke, const std::function<std::string(uint64_t)>& arbeit,
                      const std::function<void(uint64_t, const std::string&)>& ergebnis);

// Lets MPI move messages while process 0 is inside a long piece (called from the sieve's
// yields), so that the others' requests for the next piece are not held up.
void MpiNebenbei();

// Whether a piece job is under way across several processes: an error then has to end the
// whole job (MPI_Abort), where before it every process meets the same refusal and ends alone.
bool MpiVerteiltLaeuft();
[[noreturn]] void MpiJobAbbrechen(int code);

// Fixed-width fields of a piece's result (all processes of a job share one byte order).
inline void WortAnhaengen(std::string& ziel, uint64_t wert) {
    ziel.append(reinterpret_cast<const char*>(&wert), sizeof wert);
}
inline uint64_t WortLesen(const std::string& quelle, size_t& pos) {
    uint64_t wert = 0;
    quelle.copy(reinterpret_cast<char*>(&wert), sizeof wert, pos);
    pos += sizeof wert;
    return wert;
}

}  // namespace sw::cli
