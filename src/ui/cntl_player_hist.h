#pragma once

#include <QWidget>

#include <memory>

class QLabel;
class QTreeWidget;
class cMaster;

// The history of one person of the register: a tree of every tournament entered,
// newest first, with the final figures and each game below it.
class cntlPlayerHist : public QWidget
{
    Q_OBJECT

public:
    explicit cntlPlayerHist(QWidget *parent = nullptr);

    std::shared_ptr<cMaster> Master() const { return master_; }
    void setMaster(std::shared_ptr<cMaster> master) { master_ = std::move(master); }
    // Builds the tree afresh.
    void Display();

    QLabel *lblName;
    QTreeWidget *treHist;

private:
    std::shared_ptr<cMaster> master_;
};
