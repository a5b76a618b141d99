// The Ulam and hash windows: opened from their cockpit places, they draw what their models say
// (blue prime cells with digits at zoom 20, bars up to the fullest bucket), read the cell or
// bucket under the mouse, refuse bad fields with a box, and the PNG coder of sw-cli writes
// pictures that Qt's own decoder reads back pixel for pixel.
#include <QAbstractSpinBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "GuiTestUmgebung.h"
#include "distribution/PngBild.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Bild.h"
#include "windows/Fensterregister.h"
#include "windows/frmHash.h"
#include "windows/frmULAM.h"

namespace sw::test {
namespace {

class UlamHashFenster : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
};

TEST_F(UlamHashFenster, UlamDrawsItsModelAndReadsCells) {
    ASSERT_STREQ(UntersuchungVon(18).fenster, "frmULAM");
    ASSERT_TRUE(FensterOeffnen(UntersuchungVon(18).fenster, -1, nullptr));
    auto* f = Offen<frmULAM>();
    ASSERT_NE(f, nullptr);
    f->resize(900, 800);
    f->show();
    auto* bild = Steuer<Bild>(f, "picAnzeige");
    Steuer<QLineEdit>(f, "txtInnenZahl")->setText("41");
    auto* zoom = Steuer<QLabel>(f, "lblZoom");
    while (zoom->text().toInt() < 20) Steuer<QAbstractSpinBox>(f, "UpDownZoom")->stepUp();
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_TRUE(f->Modell().has_value()) << Meldungen();
    const UlamModell& m = *f->Modell();
    EXPECT_EQ(m.breite, bild->width() / 20);
    EXPECT_NE(Steuer<QLabel>(f, "lblMax")->text().indexOf(" %"), -1);

    // The centre cell holds 41: blue, with its digits in white; the cell right of it 42.
    const QPoint mitte(m.mitteX * 20, m.mitteY * 20);
    const QImage& img = bild->Abbild();
    EXPECT_EQ(img.pixel(mitte + QPoint(18, 18)) & 0xFFFFFF, 0x0000FFu);
    int hell = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) hell += qRed(img.pixel(mitte + QPoint(x, y))) > 100;
    EXPECT_GT(hell, 4);
    EXPECT_EQ(f->ZellenText(mitte + QPoint(5, 5)), "41: " + QString::fromStdString(Text(2145)));
    EXPECT_EQ(f->ZellenText(mitte + QPoint(25, 5)), "42: 2x3x7");
    EXPECT_EQ(f->ZellenText(QPoint(-5, -5)), "");

    // A smoothing of length 1 leaves the picture; a negative centre is refused with its box.
    const QImage vorher = img.copy();
    Steuer<QLineEdit>(f, "txtGlatt")->setText("1");
    Steuer<QPushButton>(f, "btnGlatt")->click();
    EXPECT_EQ(bild->Abbild(), vorher);
    Steuer<QLineEdit>(f, "txtInnenZahl")->setText("-3");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_FALSE(ui.meldungen.empty());
    EXPECT_EQ(ui.meldungen.back().text, Text(420));
}

TEST_F(UlamHashFenster, PngOfTheCliReadsBackInQt) {
    UlamEingabe e;
    e.breite = 37;
    e.hoehe = 23;
    const UlamModell m = UlamZeichnen(e);
    const std::vector<uint32_t> pixel = UlamPixel(m, 3);
    const std::string png = PngKodieren(111, 69, pixel);
    const QImage bild = QImage::fromData(reinterpret_cast<const uchar*>(png.data()), int(png.size()), "PNG");
    ASSERT_EQ(bild.size(), QSize(111, 69));
    for (int y = 0; y < 69; ++y)
        for (int x = 0; x < 111; ++x) ASSERT_EQ(bild.pixel(x, y) & 0xFFFFFF, pixel[size_t(y) * 111 + size_t(x)]) << x << "," << y;
}

TEST_F(UlamHashFenster, HashDrawsBucketsAndReadsThem) {
    ASSERT_STREQ(UntersuchungVon(35).fenster, "frmHash");
    ASSERT_TRUE(FensterOeffnen(UntersuchungVon(35).fenster, -1, nullptr));
    auto* f = Offen<frmHash>();
    ASSERT_NE(f, nullptr);
    f->resize(850, 500);
    f->show();
    Steuer<QLineEdit>(f, "txtBits")->setText("4");
    Steuer<QRadioButton>(f, "optMethode", 2)->setChecked(true);
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_TRUE(f->Ergebnis().has_value()) << Meldungen();
    EXPECT_EQ(f->Ergebnis()->HashMaximum, 5685);
    EXPECT_NE(Steuer<QLabel>(f, "lblChi")->text().indexOf(" 15 "), -1);

    // The bars of buckets 7 reach the top row; the empty seventeenth cell draws nothing.
    auto* bild = Steuer<Bild>(f, "picAnzeige");
    const QImage& img = bild->Abbild();
    const int w = img.width();
    for (int x = 0; x < w; ++x) {
        const int64_t b = f->EimerBei(x);
        const bool oben = (img.pixel(x, 1) & 0xFFFFFF) != 0xFFFFFF;
        const bool unten = (img.pixel(x, img.height() - 1) & 0xFFFFFF) != 0xFFFFFF;
        EXPECT_EQ(oben, b == 7) << x;
        if (b == 16) {
            EXPECT_FALSE(unten) << x;
        }
    }

    Steuer<QRadioButton>(f, "optMethode", 1)->setChecked(true);
    Steuer<QLineEdit>(f, "txtBits")->setText("2");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_FALSE(ui.meldungen.empty());
    EXPECT_EQ(ui.meldungen.back().text, TextP1(2151, 3));
}

}  // namespace
}  // namespace sw::test
