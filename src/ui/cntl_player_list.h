#pragma once

#include <QWidget>

class QLineEdit;
class cEntrantList;

// The grid of the open tournament's entrants with pins that can be typed in place:
// the box txtInp stands over the pin cell of the current row, and each pin is saved
// as the box is left. A pin that is not a number keeps the cursor on its row.
class cntlPlayerList : public QWidget
{
    Q_OBJECT

public:
    explicit cntlPlayerList(QWidget *parent = nullptr);

    QString SelKey() const;
    void setSelKey(const QString &key);
    QString SelName() const;
    int Row() const;
    void DisplayList();
    void SetFocus();

    cEntrantList *lstData;
    QLineEdit *txtInp;

signals:
    // The current row changed.
    void SelectionChanged();
    void RowDoubleClicked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Puts the box over the pin cell of the current row, with that cell's text.
    void PlaceInput();
    // The check made as the box is left: true when its text may stand, after storing it.
    bool AcceptPin();
    void Refuse();
    void MoveRow(int step);

    int rowUnderEdit_ = -1;
};
