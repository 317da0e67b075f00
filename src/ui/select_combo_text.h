#pragma once

class QComboBox;
class QString;

// Selects the entry of the list equal to text. Every entry is compared, so the last
// equal one stays selected; no equal entry leaves the selection as it was.
void SelectComboText(const QString &text, QComboBox &combo);
