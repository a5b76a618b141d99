#include "windows/UpDown.h"

#include <QLineEdit>

namespace sw {

UpDown::UpDown(QWidget* eltern, std::function<void(int)> schritt)
    : QAbstractSpinBox(eltern), schritt_(std::move(schritt)) {
    setFixedWidth(22);
    setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    lineEdit()->setReadOnly(true);
}

}  // namespace sw
