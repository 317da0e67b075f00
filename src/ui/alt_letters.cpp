#include "ui/alt_letters.h"

#include <QLabel>

void DropAltLetters(QWidget *panel)
{
    for (QLabel *caption : panel->findChildren<QLabel *>()) {
        const QString text = caption->text();
        QString plain;
        plain.reserve(text.size());
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text.at(i) == u'&' && i + 1 < text.size() && text.at(i + 1) != u'&')
                continue;
            plain += text.at(i);
            if (text.at(i) == u'&')
                plain += text.at(++i);
        }
        if (plain != text)
            caption->setText(plain);
    }
}
