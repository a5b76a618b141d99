// UpDown: the small up/down arrow pair beside a number field. It holds no value of its own; a
// click asks the window for the next or previous value (prime exponents, for instance).
#pragma once

#include <QAbstractSpinBox>

#include <functional>

namespace sw {

class UpDown : public QAbstractSpinBox {
public:
    // schritt gets +1 for up, -1 for down (or the number of steps of a wheel turn).
    UpDown(QWidget* eltern, std::function<void(int)> schritt);
    void stepBy(int n) override { schritt_(n); }

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

private:
    std::function<void(int)> schritt_;
};

}  // namespace sw
