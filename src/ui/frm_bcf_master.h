#pragma once

#include <QDialog>

#include <memory>

class QLabel;
class QPushButton;
class cMaster;
class cntlBCFMasterDetails;
class cntlMasterList;
class cntlMasterSummary;

// The matching window: the person of the register beside the grading list, found by
// name, so that the organiser picks the row that is that person. Used for one person
// (mode 8) and for the walk through the whole register (mode 9).
class frmBCFMaster : public QDialog
{
    Q_OBJECT

public:
    static constexpr qint32 SingleMatch = 8;
    static constexpr qint32 Walk = 9;

    explicit frmBCFMaster(QWidget *parent = nullptr);

    bool Cancelled = false;
    bool Stopped = false;
    qint32 Mode = SingleMatch;
    std::shared_ptr<cMaster> Master;

    // What the window does each time it comes up: shows the person, sets the commands
    // by the mode and finds the person in the list.
    void Activate();

    cntlMasterSummary *cntlSummary;
    cntlBCFMasterDetails *cntlBCFDetails;
    cntlMasterList *lstBCF;
    QLabel *lblMsg;
    QPushButton *cmdMatch;
    QPushButton *cmdNoMatch;
    QPushButton *cmdClear;
    QPushButton *cmdStop;

public slots:
    void reject() override;

private:
    void lstBCF_SelectionChanged();
};

// Matches the person to the grading list; unless the organiser closes the window,
// their code and grades are taken from the row chosen and written at once. Tells
// whether a row was taken.
bool MatchSingle(const std::shared_ptr<cMaster> &master, QWidget *parent);
// The walk through the register, by surname then forename: people with a code are
// refreshed from their row without a question, the others are matched one by one.
// Afterwards the person who was current is current again, read afresh.
void MatchWalk(QWidget *parent);
