// frmCollatzFolgen: the Collatz counts of a family of numbers, one row per member ("10! ;
// 66.17": steps and multiplications), from a start n in steps of n, each member with an
// optional operator; the rows of members that could not be counted say why. A double click
// shows the member in full in frmCollatzAnzeige. The list saves as text or as CSV with
// digits, bits and steps per bit.
#pragma once

#include <QPointer>

#include <array>
#include <optional>

#include "collatz/CollatzFamilie.h"
#include "windows/Fenster.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;

namespace sw {

class frmCollatzAnzeige;

class frmCollatzFolgen : public Fenster {
    Q_OBJECT
public:
    explicit frmCollatzFolgen(QWidget* eltern = nullptr);
    ~frmCollatzFolgen() override;
    // btnGO: runs the family until the user stops it or the list is full; a second click stops.
    void Starten();
    // The member of a row in frmCollatzAnzeige.
    void ZeileZeigen(QListWidgetItem* item);

protected:
    std::optional<QStringList> ListenCsv() override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    std::optional<FamilienAuftrag> auftragLesen();
    void lauf(const FamilienAuftrag& a);
    void formelZeigen();
    void farbeWaehlen(int index);

    std::array<QRadioButton*, FamilienAnzahl> optOperation_{};
    QLineEdit* txtStart_;
    QLineEdit* txtStep_;
    QComboBox* cmbOperator_;
    QLineEdit* txtOffset_;
    QLineEdit* txtFormel_;
    QPushButton* btnGO_;
    QString ruheText_;
    QListWidget* list1_;
    std::array<QLabel*, 2> lblCol_{};
    std::string eigeneFormel_ = "n^2+1";  // family 9's formula while another family is chosen
    FamilienAuftrag letzterAuftrag_;      // the order whose rows the list shows
    QPointer<frmCollatzAnzeige> anzeige_;
};

}  // namespace sw
