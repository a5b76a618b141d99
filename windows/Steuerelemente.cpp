#include "windows/Steuerelemente.h"

#include <QRegularExpression>

namespace sw {

QString SteuerName(const QString& name, int index) {
    return index < 0 ? name : QStringLiteral("%1(%2)").arg(name).arg(index);
}

void NameZerlegen(const QString& key, QString& basis, int& index) {
    static const QRegularExpression muster(QStringLiteral(R"(^(.*)\((\d+)\)$)"));
    QRegularExpressionMatch m = muster.match(key);
    if (m.hasMatch()) {
        basis = m.captured(1);
        index = m.captured(2).toInt();
    } else {
        basis = key;
        index = -1;
    }
}

QObject* SteuerFinden(const QObject* wurzel, const QString& key) {
    if (!wurzel) return nullptr;
    if (wurzel->objectName().compare(key, Qt::CaseInsensitive) == 0) return const_cast<QObject*>(wurzel);
    const QList<QObject*> alle = wurzel->findChildren<QObject*>();
    for (QObject* o : alle) {
        if (o->objectName().compare(key, Qt::CaseInsensitive) == 0) return o;
    }
    return nullptr;
}

QHBoxLayout* KnopfReihe(std::initializer_list<QPushButton*> knoepfe) {
    auto* reihe = new QHBoxLayout;
    reihe->addStretch(1);
    for (QPushButton* k : knoepfe) reihe->addWidget(k);
    return reihe;
}

}  // namespace sw
