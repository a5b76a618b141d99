// frmPrimzahlTest: tests one number of any size, typed or as a formula, by one of seven
// methods: trial division down from the root, Miller-Rabin, Solovay-Strassen, Perrin,
// Fermat, Fermat's search and BPSW. The run is PrimzahlTestLauf (primality/); this window
// binds its fields and buttons to it and shows its lines.
#pragma once

#include "primality/PrimTestBericht.h"
#include "primality/PrimzahlTest.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace sw {

class frmPrimzahlTest : public Fenster, private PrimTestAnzeige {
    Q_OBJECT
public:
    explicit frmPrimzahlTest(QWidget* eltern = nullptr);
    bool Groessenveraenderlich() const override { return false; }
    // The click of btnTest(methode).
    void Testen(int32_t methode);

protected:
    // A window closed while its test runs stops the test and goes when it has ended.

private:
    void Hinweis(const std::string& text) override;
    void GrenzeZeigen(const std::string& text) override;
    void StoppZeigen(bool sichtbar) override;
    void laufend(bool ja);

    QLineEdit* txtPrim_;
    QLineEdit* txtGrenze_;
    QPushButton* btnTest_[PrimTestMethodenAnzahl];
    QPushButton* btnGO_;
    QLabel* lblHinweis_;
    QString stoppText_;
};

}  // namespace sw
