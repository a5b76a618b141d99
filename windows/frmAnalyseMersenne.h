// frmAnalyseMersenne: how the exponents with a divisor lie among each other. From txtStart
// over txtIntervall, the gaps between neighbours (chkLücken) or every difference of two
// exponents, each up to txtAbstandBis, counted and listed with their share of all counted
// differences; chkSortAnzahl orders the list by count.
#pragma once

#include "windows/Fenster.h"

class QCheckBox;
class QLineEdit;
class QListWidget;

namespace sw {

class frmAnalyseMersenne : public Fenster {
    Q_OBJECT
public:
    explicit frmAnalyseMersenne(QWidget* eltern = nullptr);
    // btnGO.
    void Analysieren();

protected:
    std::optional<QStringList> ListenCsv() override;

private:
    QLineEdit* txtStart_;
    QLineEdit* txtIntervall_;
    QLineEdit* txtAbstandBis_;
    QCheckBox* chkLuecken_;
    QCheckBox* chkSortAnzahl_;
    QListWidget* List1_;
};

}  // namespace sw
