// frmQuadrat: squares and their relatives, one page each: roots and the Jacobi symbol, square
// roots modulo a prime, inverses, primitive roots and orders, a number's bytes, the calculator
// of the two word widths, and the FFT product against GMP's. Binds the fields to
// primality/QuadratWerkzeug, arith/ByteZahl and arith/WortRechner; every field takes a formula.
#pragma once

#include <functional>
#include <optional>

#include "windows/Fenster.h"
#include "zahlkern/Hyp.h"

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace sw {

class frmQuadrat : public Fenster {
    Q_OBJECT
public:
    explicit frmQuadrat(QWidget* eltern = nullptr);

    enum Seite { SeiteQuadrat, SeiteInverse, SeitePrimwurzel, SeiteBytes, SeiteWort, SeiteFft, SeitenAnzahl };

    // The buttons' work; each writes the page's result box or shows why it cannot.
    void Wurzel();
    void JacobiZeigen();
    void WurzelMod();
    void Inverse();
    void Primwurzel();
    void ZahlNachBytes();
    void HexNachZahl();
    void TextNachZahl();
    void WortRechnen();
    void FftRechnen();

    QString Ergebnis(int seite) const;

protected:
    // The "Save" icon writes the result of the page in front.
    std::optional<QStringList> ListenText() override;

private:
    QWidget* seite(int nummer, const char* name);
    QLineEdit* feld(QWidget* eltern, const char* name, const char* beschriftung, QGridLayout* raster, int zeile);
    void zeigen(int seite, const QString& text);
    // The bytes page: the number, its hex bytes and (when valid UTF-8) its text, into the fields
    // and as the result's lines.
    QString bytesBericht(const Hyp& n);
    // Runs a page's job: a refused input becomes an info box (the field's message) and the
    // result box says nothing stale.
    void ausfuehren(int seite, const std::function<QString()>& job);

    QTabWidget* tabSeiten_;
    QPlainTextEdit* txtErgebnis_[SeitenAnzahl];
    QLineEdit *txtZahl_, *txtK_, *txtModul_;
    QLineEdit *txtInvA_, *txtInvM_;
    QLineEdit *txtPrim_, *txtOrdnung_;
    QLineEdit *txtBytesZahl_, *txtBytesHex_, *txtBytesText_;
    QLineEdit *txtWortA_, *txtWortB_;
    QComboBox* cmbOp_;
    QRadioButton* optBreite_[2];
    QLineEdit *txtFftA_, *txtFftB_;
};

}  // namespace sw
