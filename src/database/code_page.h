#pragma once

#include <QByteArrayView>
#include <QString>

// The single-byte code pages in which dBase files keep their text. A file names its
// code page by its language byte or by a ".cpg" file beside it; a file that names
// none was written by a Windows program of the list's era and is read as 1252.
namespace CodePage {

inline constexpr int Windows1252 = 1252;
inline constexpr int Dos437 = 437;
inline constexpr int Dos850 = 850;
inline constexpr int Utf8 = 65001;

// The code page that a dBase language byte names, or 0 when it names none that
// this program reads.
int OfLanguageByte(unsigned char languageByte);
// The code page that the text of a ".cpg" file names ("1252", "ANSI 1252",
// "UTF-8", "850", ...), or 0 when it names none that this program reads.
int OfName(const QString &name);
// True for the code pages that Decode understands.
bool IsKnown(int codePage);
// The bytes as text; a code page that is not known is read as 1252.
QString Decode(int codePage, QByteArrayView bytes);

} // namespace CodePage
