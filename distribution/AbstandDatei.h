// AbstandDatei: the gap graphic's numbers on disk and its settings. The export writes the three
// lists one after the other with an empty line between them, each row as it stands; the same
// file can be read back so that a saved count is drawn again without counting. Entries that
// cannot be read are named in a German message instead of being taken as zero.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sw {

// The three lists as one text: the rows of each list, an empty line between two lists.
std::string AbstandCsvText(const std::vector<std::vector<std::string>>& listen);

// What a saved file gives back: the first row of each list. differenzen holds the labels of the
// bars (differences, gap numbers or parts), anzahlen their raw counts, werte their values.
struct AbstandTabelle {
    std::vector<int64_t> differenzen;
    std::vector<int64_t> anzahlen;
    std::vector<double> werte;
};
// Nothing, with the message in fehler, for a text that is not three lists of equal length
// or holds a field that is no number.
std::optional<AbstandTabelle> AbstandCsvLesen(const std::string& text, std::string& fehler);

// A value of the section "LückenGrafik" as stored: empty gives vorgabe; text that is no whole
// number from 0 to hoechstens gives vorgabe too, and a message in meldung naming key and value.
int32_t LueckenEinstellung(const std::string& key, const std::string& wert, int32_t vorgabe, int32_t hoechstens,
                           std::string& meldung);

}  // namespace sw
