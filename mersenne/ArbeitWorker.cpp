#include "mersenne/ArbeitWorker.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <memory>
#include <mutex>
#include <thread>

#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "mersenne/LucasLauf.h"
#include "mersenne/basLucas.h"

namespace sw {

namespace {

constexpr double kErsteWartezeit = 0.25;  // first wait after a lost connection, doubled each time
constexpr double kSchlummerTeil = 0.05;   // a wait is cut into pieces that let Ctrl-C in
constexpr double kErsterLeerlauf = 0.05;  // first wait for units held by others, doubled each time

std::string sekundenText(double s) {
    char b[32];
    std::snprintf(b, sizeof b, "%.2f s", s);
    return b;
}

// Renews the lease of the unit in work from a thread and a connection of its own, so that a
// long segment of the computation never lets the lease run out.
class Herzschlag {
public:
    Herzschlag(const ArbeitWorkerAuftrag& a) : a_(a), t_([this] { laufen(); }) {}
    ~Herzschlag() {
        {
            std::lock_guard<std::mutex> l(m_);
            ende_ = true;
        }
        cv_.notify_all();
        t_.join();
    }
    void Halten(int64_t id) {
        std::lock_guard<std::mutex> l(m_);
        id_ = id;
        verloren_ = false;
    }
    void Loslassen() {
        std::lock_guard<std::mutex> l(m_);
        id_ = 0;
    }
    bool Verloren() const { return verloren_; }

private:
    void laufen() {
        const auto takt = std::chrono::duration<double>(a_.leaseSekunden / 3);
        std::unique_lock<std::mutex> l(m_);
        while (!cv_.wait_for(l, takt, [this] { return ende_; })) {
            const int64_t id = id_;
            if (id == 0) continue;
            l.unlock();
            bool eigen = true;
            try {
                if (!v_) v_ = std::make_unique<PgVerbindung>(a_.url);
                eigen = ArbeitVerlaengern(*v_, id, a_.name, a_.leaseSekunden);
            } catch (const Laufzeitfehler&) {
                // The server is away: the next beat connects again. Whether the lease outlived
                // the gap is for the closing transaction to find out.
                v_.reset();
            }
            l.lock();
            if (!eigen && id_ == id) verloren_ = true;
        }
    }

    const ArbeitWorkerAuftrag& a_;
    std::unique_ptr<PgVerbindung> v_;
    std::mutex m_;
    std::condition_variable cv_;
    int64_t id_ = 0;
    bool ende_ = false;
    std::atomic<bool> verloren_{false};
    std::thread t_;  // last: starts once everything it uses is there
};

// Thrown out of a Lucas-Lehmer run whose lease was lost.
struct LeaseVerloren {};

class LucasWache : public LucasAnzeige {
public:
    explicit LucasWache(const Herzschlag& h) : h_(h) {}
    void Stand(uint32_t, const std::string&) override {
        if (h_.Verloren()) throw LeaseVerloren{};
    }

private:
    const Herzschlag& h_;
};

class Worker {
public:
    Worker(const ArbeitWorkerAuftrag& a, ArbeitWorkerAnzeige* anzeige)
        : a_(a), anzeige_(anzeige), v_(std::make_unique<PgVerbindung>(a.url)) {}

    ArbeitWorkerBefund Laufen() {
        const double start = Timer();
        wiederholt([&] { ArbeitSchemaAnlegen(*v_); });
        Herzschlag herz(a_);
        double leerlauf = kErsterLeerlauf;
        for (;;) {
            if (a_.hoechstensSekunden > 0 && Timer() - start >= a_.hoechstensSekunden) {
                melden("time is up; no new unit claimed");
                break;
            }
            const std::optional<ArbeitEinheit> e =
                wiederholt([&] { return ArbeitBeanspruchen(*v_, a_.name, a_.leaseSekunden, a_.art); });
            if (!e) {
                // Units still held by others may come back when their workers die. The first
                // looks come quickly, since at the end of a queue the last units are usually
                // done within a moment and the worker should leave then, not seconds later.
                if (!wiederholt([&] { return ArbeitUebrig(*v_, a_.art); })) break;
                schlummern(std::min({leerlauf, a_.leaseSekunden / 2, 2.0}));
                leerlauf *= 2;
                continue;
            }
            leerlauf = kErsterLeerlauf;
            herz.Halten(e->id);
            try {
                einheit(*e, herz);
            } catch (...) {
                // Stopped by the user or a failure: the unit goes back to the queue at once
                // rather than when its lease runs out.
                herz.Loslassen();
                try {
                    ArbeitFreigeben(*v_, e->id, a_.name);
                } catch (const Laufzeitfehler&) {
                    // Unreachable now: the lease runs out by itself and the unit comes back.
                }
                throw;
            }
            herz.Loslassen();
        }
        befund_.sekunden = Timer() - start;
        return befund_;
    }

private:
    void einheit(const ArbeitEinheit& e, Herzschlag& herz) {
        const double start = Timer();
        const EinheitWeiter weiter = [&] {
            DoEvents();
            return !herz.Verloren();
        };
        std::string bereich = std::string(ArbeitArtName(e.art)) + " " + std::to_string(e.von);
        if (e.bis != e.von) bereich += ".." + std::to_string(e.bis);
        ArbeitErgebnis r;
        bool fertig = true;
        switch (e.art) {
        case ArbeitArt::Teiler: {
            bereich += " k<=" + std::to_string(e.KZiel);
            const auto gespeichert = wiederholt([&] { return ArbeitPrimLesen(*v_, e.von, e.bis); });
            auto zeilen = TeilerEinheitRechnen(uint32_t(e.von), uint32_t(e.bis), e.KZiel, gespeichert, weiter);
            fertig = zeilen.has_value();
            if (fertig) {
                r.teiler = std::move(*zeilen);
                for (const TeilerErgebnisZeile& z : r.teiler) r.treffer += z.q.empty() ? 0 : 1;
                r.text = std::to_string(r.teiler.size()) + " exponents, " + std::to_string(r.treffer) + " divisors";
            }
            break;
        }
        case ArbeitArt::Lucas: {
            LucasAuftrag la;
            la.p = uint32_t(e.von);
            la.methode = la.p >= LucasDwtAb ? LucasMethodeDwt : LucasMethodeKaratsuba;
            la.pruefpunkte = false;
            LucasWache wache(herz);
            try {
                const LucasBefund b = LucasLauf(la, &wache);
                r.treffer = b.ergebnis == LucasErgebnis::Prim ? 1 : 0;
                r.text = std::string(r.treffer ? "prime" : "composite") + ", Res64 " + Res64Text(b.res64);
            } catch (const LeaseVerloren&) {
                fertig = false;
            }
            break;
        }
        case ArbeitArt::Collatz: {
            r.collatz = CollatzEinheitRechnen(e.von, e.bis, weiter);
            fertig = r.collatz.has_value();
            if (fertig) {
                r.text = std::to_string(r.collatz->schritte) + " steps, longest " +
                         std::to_string(r.collatz->laengste) + " from " + std::to_string(r.collatz->laengsteStart);
            }
            break;
        }
        }
        r.sekunden = Timer() - start;
        if (fertig && wiederholt([&] { return ArbeitAbschliessen(*v_, e, a_.name, r); })) {
            ++befund_.einheiten;
            befund_.treffer += r.treffer;
            melden("unit " + std::to_string(e.id) + " " + bereich + ": " + r.text + ", " + sekundenText(r.sekunden));
            return;
        }
        ++befund_.verloren;
        melden("unit " + std::to_string(e.id) + " " + bereich +
               ": lease lost (the unit went to another worker); nothing written");
    }

    // f, again after a lost connection has been taken up anew; any other failure passes on.
    template <class F>
    auto wiederholt(F f) -> decltype(f()) {
        double warten = kErsteWartezeit;
        for (;;) {
            try {
                return f();
            } catch (const Laufzeitfehler& fehler) {
                if (v_->Verbunden()) throw;
                stoeren(std::string("connection lost: ") + fehler.what() + "; trying again in " + sekundenText(warten));
            }
            for (;;) {
                schlummern(warten);
                warten = std::min(warten * 2, a_.wartenHoechstens);
                try {
                    v_->Wiederverbinden();
                    stoeren("connected again to " + v_->Adresse());
                    break;
                } catch (const Laufzeitfehler&) {
                    stoeren("no connection yet; trying again in " + sekundenText(warten));
                }
            }
        }
    }

    void schlummern(double sekunden) {
        for (double bis = Timer() + sekunden; Timer() < bis;) {
            DoEvents();
            std::this_thread::sleep_for(std::chrono::duration<double>(std::min(kSchlummerTeil, sekunden)));
        }
    }

    void melden(const std::string& text) {
        if (anzeige_ != nullptr) anzeige_->Meldung(text);
    }
    void stoeren(const std::string& text) {
        if (anzeige_ != nullptr) anzeige_->Stoerung(text);
    }

    const ArbeitWorkerAuftrag& a_;
    ArbeitWorkerAnzeige* anzeige_;
    std::unique_ptr<PgVerbindung> v_;
    ArbeitWorkerBefund befund_;
};

}  // namespace

std::string ArbeitWorkerName() {
    char host[256] = {};
    if (gethostname(host, sizeof host - 1) != 0) host[0] = 0;
    return std::string(host[0] != 0 ? host : "worker") + ":" + std::to_string(getpid());
}

ArbeitWorkerBefund ArbeitWorkerLauf(const ArbeitWorkerAuftrag& auftrag, ArbeitWorkerAnzeige* anzeige) {
    if (!(auftrag.leaseSekunden > 0) || auftrag.name.empty()) throw Laufzeitfehler(5);
    Worker w(auftrag, anzeige);
    return w.Laufen();
}

}  // namespace sw
