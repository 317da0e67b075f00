#pragma once

#include <QWidget>

#include <memory>

class cFieldRules;
class cPlayer;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedLayout;
class QStatusBar;

// Shows or edits one entrant: read-only labels to view or delete, input fields for a
// new entrant or an update.
class cntlPlayerDetails : public QWidget
{
    Q_OBJECT

public:
    enum Mode { View = 0, New = 1, Change = 2, Remove = 5 };

    explicit cntlPlayerDetails(QWidget *parent = nullptr);

    int DisplayMode() const { return displayMode_; }
    void setDisplayMode(int mode);
    std::shared_ptr<cPlayer> Player() const { return player_; }
    void setPlayer(std::shared_ptr<cPlayer> player) { player_ = std::move(player); }
    QStatusBar *StatusBar() const;
    void setStatusBar(QStatusBar *statusBar);

    // Fills the fields and the labels from the entrant.
    void Display();
    // A new or changed entrant needs a surname.
    bool Valid();
    // Writes what the mode asks: a new entrant, the entrant changed (and, when the
    // organiser agrees, the register record with it), or the entrant deleted.
    void Update();

    QWidget *frmText;
    QWidget *frmLabel;
    QLineEdit *txtMasterId;
    QLineEdit *txtForename;
    QLineEdit *txtSurname;
    QLineEdit *txtDOB;
    QLineEdit *txtAge;
    QComboBox *cmbClub;
    QLineEdit *txtGradeClub;
    QLineEdit *txtGradeCode;
    QComboBox *cmbSchool;
    QLineEdit *txtGMTitle;
    QLineEdit *txtGrade;
    QComboBox *cmbGLett;
    QLineEdit *txtRGrade;
    QComboBox *cmbRLett;
    QLineEdit *txtELO;
    QLineEdit *txtCode;
    QLabel *lblMasterId;
    QLabel *lblForename;
    QLabel *lblSurname;
    QLabel *lblDOB;
    QLabel *lblAge;
    QLabel *lblClub;
    QLabel *lblGradeClub;
    QLabel *lblSchool;
    QLabel *lblGMTitle;
    QLabel *lblGrade;
    QLabel *lblRGrade;
    QLabel *lblELO;
    QLabel *lblCode;
    QPushButton *cmdSelect;
    QPushButton *cmdGradeClub;

signals:
    // Any text or list was changed.
    void Changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildFields();
    void BuildLabels();
    void CopyFields(cPlayer &player) const;
    void cmdSelect_Click();
    void cmdGradeClub_Click();

    int displayMode_ = View;
    std::shared_ptr<cPlayer> player_;
    cFieldRules *rules_;
    QStackedLayout *frames_;
};
