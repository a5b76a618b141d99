// Takt: how often a long loop of the prime tests gives the event loop a turn. Reading the
// clock at every step would cost more than a step of a small number, so the loop counts down
// an interval of steps, and at each turn the interval is measured anew against the clock, so
// that turns come about every twentieth of a second whatever a step costs: the stop button
// answers at once, and a fast loop does not spend its time in the event loop.
#pragma once

#include <cstdint>

namespace sw {

class Takt {
public:
    explicit Takt(double zielSekunden = 0.05);
    // Counts one step; true when the loop should yield now.
    bool Faellig() {
        if (--rest_ > 0) return false;
        neuMessen();
        return true;
    }

private:
    void neuMessen();
    double ziel_;
    double letzte_;
    int64_t intervall_ = 1;
    int64_t rest_ = 1;
};

}  // namespace sw
