// Steuerelemente: controls are found by name. Every control gets its objectName from one
// helper, with "(index)" behind it when it belongs to a control array ("btnStart(3)"), so that
// the texts of sw.TEX, the stored values of SW.Ini and the tests all address the same control
// by the same key. Lookup ignores case, as the text table does.
#pragma once

#include <QHBoxLayout>
#include <QObject>
#include <QPushButton>
#include <QString>

#include <initializer_list>

namespace sw {

// "btnStart" or "btnStart(3)" for index >= 0.
QString SteuerName(const QString& name, int index = -1);
// Splits "btnStart(3)" into "btnStart" and 3; a name without index gives -1.
void NameZerlegen(const QString& key, QString& basis, int& index);

// Names an object (widget, action, menu) and returns it, so creation and naming are one step.
template <typename T>
T* Benannt(T* objekt, const QString& name, int index = -1) {
    objekt->setObjectName(SteuerName(name, index));
    return objekt;
}

// The object below wurzel (wurzel included) whose name equals key ignoring case; nullptr if none.
QObject* SteuerFinden(const QObject* wurzel, const QString& key);

template <typename T>
T* Steuer(const QObject* wurzel, const QString& name, int index = -1) {
    return qobject_cast<T*>(SteuerFinden(wurzel, SteuerName(name, index)));
}

// The row of buttons at the foot of a dialog: pushed to the right, in the given order.
QHBoxLayout* KnopfReihe(std::initializer_list<QPushButton*> knoepfe);

}  // namespace sw
