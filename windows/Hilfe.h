// Hilfe: SW's own help. The pages are HTML files in the folder help/ beside the program (the
// build copies data/help there); each page names the help keys it answers in its
// <meta name="keywords"> (separated by ";"). A window's key is the caption of the button or
// menu item that opened it, so the keywords follow the captions of sw.TEX. The help window
// offers the contents (all pages by title), an index (all keys) and a full-text search.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace sw {

struct HilfeSeite {
    QString datei;          // absolute path
    QString titel;
    QStringList schluessel; // the help keys it answers
    QString text;           // plain text, for the search
};

QString HilfeOrdner();
// All pages, sorted by title; read once.
const std::vector<HilfeSeite>& HilfeSeiten();
// The page answering key (ignoring case, "&" of accelerators taken out); nullptr if none.
const HilfeSeite* HilfeSeiteZu(const QString& key);

// F1 and the help buttons: the page of key in the help window. An empty key says that the window has none,
// a key without a page says so in a box.
void HilfeZeigen(const QString& key);
// The help window on its contents, its index or its search.
void HilfeInhalt();
void HilfeIndex();
void HilfeSuchen();

}  // namespace sw
