#pragma once

#include <QWidget>

#include <memory>

class cFieldRules;
class cTournament;
class QComboBox;
class QLabel;
class QLineEdit;
class QStackedLayout;
class QStatusBar;

// Shows or edits the fields of one tournament: read-only labels in view and delete
// modes, input fields in new, update and copy modes.
class cntlTournament : public QWidget
{
    Q_OBJECT

public:
    // The modes shared with the details dialog.
    enum Mode { View = 0, New = 1, Change = 2, Copy = 3, Remove = 5 };

    explicit cntlTournament(QWidget *parent = nullptr);

    int DisplayMode() const { return displayMode_; }
    // Shows the labels (view, delete) or the fields (new, update, copy) at once.
    void setDisplayMode(int mode);
    std::shared_ptr<cTournament> Tournament() const { return tournament_; }
    void setTournament(std::shared_ptr<cTournament> tournament)
    {
        tournament_ = std::move(tournament);
    }
    QStatusBar *StatusBar() const;
    void setStatusBar(QStatusBar *statusBar);

    // Fills the fields and the labels from the tournament.
    void Display();
    // Whether the dialog may go on: a new or changed tournament needs a title or an
    // event; a deletion needs the organiser's yes.
    bool Valid();
    // Writes what the mode asks: a new row, the row changed, or the tournament deleted.
    void Update();

    QWidget *frmText;
    QWidget *frmLabel;
    QLineEdit *txtTitle;
    QLineEdit *txtTourn;
    QLineEdit *txtFDate;
    QLineEdit *txtTDate;
    QComboBox *txtType;
    QLineEdit *txtRounds;
    QLineEdit *txtDefGrade;
    QLineEdit *txtText[6];
    QLabel *lblTitle;
    QLabel *lblTourn;
    QLabel *lblFDate;
    QLabel *lblTDate;
    QLabel *lblType;
    QLabel *lblRounds;
    QLabel *lblDefGrade;
    QLabel *lblText[6];
    QLineEdit *txtCurrRound;

private:
    void BuildFields();
    void BuildLabels();
    void CopyFields();

    int displayMode_ = View;
    std::shared_ptr<cTournament> tournament_;
    cFieldRules *rules_;
    QStackedLayout *frames_;
};
