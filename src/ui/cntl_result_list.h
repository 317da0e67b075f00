#pragma once

#include <QWidget>

#include <memory>

class QLineEdit;
class QStatusBar;
class QTableView;
class cPlayer;
class cResult;
class cResultListModel;

// The pairing and result grid of one round, driven from the keyboard by pin number.
// One edit box, txtInp, floats over the cell being edited; Tab walks only the four
// cells that take input (board, white pin, result, black pin), names fill in by
// themselves, and a wrong entry beeps and stays in its cell.
//
// The grid edits the games of the open tournament in memory; the window around it
// stores a round when the person says so.
class cntlResultList : public QWidget
{
    Q_OBJECT

public:
    explicit cntlResultList(QWidget *parent = nullptr);
    ~cntlResultList() override;

    // Shows the games of the round, blank rows included, in the order of the games.
    void DisplayList(qint16 round);
    // Shows the round on view afresh.
    void Refresh();
    // Puts the edit box over the current cell and gives it the focus.
    void SetFocus();
    // The current row, counted from 1, and the number of rows on view.
    int Row() const { return editRow_ + 1; }
    int Rows() const;
    qint16 DisplayedRound() const { return round_; }
    // The host's status bar, where the help of the cell being edited is shown; may be none.
    void setStatusBar(QStatusBar *statusBar) { statusBar_ = statusBar; }

    // Checks and commits what the edit box holds, as leaving the cell would. False,
    // with a beep and the focus kept in the cell, when the text is refused; a command
    // of the window then does not run.
    bool CommitEdit();

    QTableView *lstData;
    QLineEdit *txtInp;

signals:
    // The number of rows after each display, so the host can enable its round commands.
    void RowsDisplayed(int rows);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool InputKey(class QKeyEvent *key);
    void EnterCell(int row, int column);
    void LoadEditor();
    void PlaceEditor();
    bool CheckEdit() const;
    void Commit();
    void CommitPlayer(cResult &game, int column, const QString &text);
    bool AtFirstCell() const;
    bool AtLastCell() const;
    void MoveForward();
    void MoveBack();
    void HeaderClicked(int column);
    void MarkSortColumn();
    std::shared_ptr<cResult> GameOfRow(int row) const;
    QString HelpOfColumn(int column) const;

    cResultListModel *model_;
    QStatusBar *statusBar_ = nullptr;
    qint16 round_ = 0;
    int sortColumn_ = 1;
    int sortDirection_ = 7;
    // The direction each heading was last sorted in: 7, 8, or 0 when another was since.
    int headingTags_[7] = {};
    int editRow_ = 0;
    int editColumn_ = 1;
    // True while the edit box holds the cell being edited and not yet committed.
    bool loaded_ = false;
};
