// frmSucheZwillinge: lists the prime twins of an interval that begins at a number of any size,
// by one of four methods (trial division of a square minus one, the primary raster, a
// secondary range, the tertiary sieve with a probabilistic test). The search is
// ZwillingeSuchen (primality/); this window binds its fields, options and list to it.
#pragma once

#include <QString>

#include "primality/Zwillinge.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QWidget;

namespace sw {

class Balken;

class frmSucheZwillinge : public Fenster, private ZwillingeAnzeige {
    Q_OBJECT
public:
    explicit frmSucheZwillinge(QWidget* eltern = nullptr);
    // The click of btnGO: starts a run, or stops the one that runs.
    void Los();
    // The click of btnErwartung.
    void Erwartung();

private:
    void Zwilling(const Hyp& p, const std::string& zeile) override;
    void Zeile(const std::string& text) override;
    void WartenZeigen(bool sichtbar) override;
    void KandidatenZeigen(int64_t anzahl) override;
    void StreichungenZeigen(int64_t gestrichen) override;
    void SiebFortschritt(int32_t prozent) override;
    void TestFortschritt(int32_t prozent) override;
    int32_t gewaehlt(QRadioButton* const* knoepfe, int32_t anzahl) const;
    void artenFreigeben();
    void laufend(bool ja);

    QLineEdit* txtStart_;
    QLineEdit* txtIntervall_;
    QPushButton* btnErwartung_;
    QPushButton* btnGO_;
    QRadioButton* optVerfahren_[ZwillingeVerfahrenAnzahl];
    QRadioButton* optArt_[ZwillingeArtenAnzahl];
    QListWidget* liste_;
    QLabel* lblCount_;
    QLabel* lblCountStreich_;
    QWidget* fraWait_;
    Balken* balken_;
    Balken* balkenTertiaer_;
    QString ruheText_;
};

}  // namespace sw
