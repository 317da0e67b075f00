#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QTabBar;
class cntlDataList;

// A data list narrowed by the initial of the name: 27 tabs, "?" for a search by name
// and one for each letter, so that the whole register is never read at once unless
// asked for. Used for the register (kind 0), the grading list (kind 4) and the
// contacts (kind 5).
class cntlMasterList : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(qint32 DisplayType READ DisplayType WRITE setDisplayType)

public:
    explicit cntlMasterList(QWidget *parent = nullptr);

    qint32 DisplayType() const { return displayType_; }
    void setDisplayType(qint32 value);

    QString SelKey() const;
    void setSelKey(const QString &key);
    QString SelCode() const;
    QString SelName() const;
    void setSelName(const QString &name);

    // Selects the tab of the key ("?", "A" … "Z"), which reloads the list; "" is
    // passed over.
    void SetTab(const QString &key);
    // The key of the selected tab.
    QString Tab() const;
    // Puts the surname, the comma, a blank and the forename's initial of the name into
    // the search box, and selects the search tab.
    void SelSearch(const QString &name);
    // Reloads the list with the filter of the selected tab.
    void DisplayList();
    void SetFocus();
    // Selects the tab of the initial of the person of the id (of the register or of
    // the contacts, by the kind), so that someone just added or renamed is shown under
    // their own letter; a search on view is left as it is.
    void ShowUnderOwnLetter(const QString &id);
    // Takes the focus now and once more after the dialog that just closed has handed it
    // back to the command that opened it.
    void TakeFocusAfterDialog();

    QWidget *fmMaster;
    cntlDataList *lstMaster;
    QTabBar *tabChar;
    QWidget *searchRow;
    QLineEdit *txtSearch;
    QPushButton *cmdSearch;
    QLabel *lblSearch;

signals:
    void SelectionChanged();
    void DoubleClicked();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void tabChar_Click(int index);
    void cmdSearch_Click();
    QString Filter() const;

    qint32 displayType_ = 0;
    bool prepared_ = false;
};
