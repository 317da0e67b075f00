#include "ui/select_combo_text.h"

#include <QComboBox>
#include <QString>

void SelectComboText(const QString &text, QComboBox &combo)
{
    for (int index = 0; index < combo.count(); ++index)
        if (combo.itemText(index) == text)
            combo.setCurrentIndex(index);
}
