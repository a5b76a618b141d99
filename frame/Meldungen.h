// Meldungen: the message boxes of SW. Fixed titles and icons; the texts come from sw.TEX by
// key. Every box goes through the Oberflaeche in force, so logic that shows one runs the same
// under the desktop program, sw-cli and the tests.
#pragma once

#include <string>

#include "frame/Laufzeitfehler.h"

namespace sw {

void MsgInfo(int key);                                              // "SW - Info"
void MsgInfoText(const std::string& text);                          // "SW - Info", given text
void MsgInfoP1(int key, const std::string& p1);                     // "SW - Info", TextP1
void MsgInfoP1P2(int key, const std::string& p1, const std::string& p2);
int MsgFrage(int key);                        // "SW - ???", Yes/No; returns 6 for Yes
void MsgFehler(int key, const Laufzeitfehler& fehler);  // "SW - Fehler": text, "Nr.: ", number, description
void MsgSpeicher(const Laufzeitfehler& fehler);         // "SW - Speicher": key 204 with number and description
void MsgLimit(const Laufzeitfehler& fehler);            // "SW - Grenze": key 205 with number and description
void MsgNichtImplementiert();                 // "SW - Nicht verfügbar": key 203
void MsgLaufwerk();                           // "SW - Laufwerk": key 206
void MsgBereich();                            // "SW - Info": key 207
void MsgLimit512();                           // "SW - Info": key 512

// The cockpit's question before the program ends: "SW-Stop?", key 491, Yes/No/Cancel.
int MsgEndeFrage();

// The text that MsgFehler shows; kept apart so that the error box of a window says the same.
std::string FehlerText(int key, const Laufzeitfehler& fehler);

}  // namespace sw
