// ArbeitWorker: one worker of the shared queue. It claims a unit, computes it while a second
// connection renews the lease every third of its length, and closes it with its result in one
// transaction; then the next, until no unit is left or the time is up. A lost connection is
// taken up again with waits that double up to a cap, and the work goes on where it stood: a
// result computed before the loss is still written if the lease is still the worker's.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "mersenne/ArbeitSchlange.h"

namespace sw {

struct ArbeitWorkerAuftrag {
    std::string url;
    std::string name;                   // unique among the workers (default: host:pid)
    std::optional<ArbeitArt> art;       // only units of this kind
    double leaseSekunden = 60;
    double hoechstensSekunden = 0;      // no new claim after this; 0: no limit
    double wartenHoechstens = 30;       // cap of the wait between two reconnects
};

// What a worker reports on its way: each closed or lost unit, and the state of its connection.
class ArbeitWorkerAnzeige {
public:
    virtual ~ArbeitWorkerAnzeige() = default;
    virtual void Meldung(const std::string&) {}
    virtual void Stoerung(const std::string&) {}
};

struct ArbeitWorkerBefund {
    int64_t einheiten = 0;  // closed by this worker
    int64_t verloren = 0;   // given up because the lease was lost
    int64_t treffer = 0;    // divisors found, Mersenne primes
    double sekunden = 0;
};

// Host name and process id: what tells the workers of a cluster apart.
std::string ArbeitWorkerName();

// The worker's loop. A first connection that fails throws (a wrong address or password is
// no passing trouble); later losses are waited out. A stop by the user (Ctrl-C) gives the
// unit in work back to the queue and passes on.
ArbeitWorkerBefund ArbeitWorkerLauf(const ArbeitWorkerAuftrag& auftrag, ArbeitWorkerAnzeige* anzeige);

}  // namespace sw
