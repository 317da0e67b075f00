#pragma once

#include <QWidget>

#include <memory>

class QLabel;
class cBCFMaster;

// One row of the grading list, read-only, as the matching window shows it.
class cntlBCFMasterDetails : public QWidget
{
    Q_OBJECT

public:
    explicit cntlBCFMasterDetails(QWidget *parent = nullptr);

    std::shared_ptr<cBCFMaster> BCFMaster() const { return bcfMaster_; }
    void setBCFMaster(std::shared_ptr<cBCFMaster> bcfMaster) { bcfMaster_ = std::move(bcfMaster); }
    void Display();

    QLabel *lblName;
    QLabel *lblCode;
    QLabel *lblFIDE;
    QLabel *lblAge;
    QLabel *lblGender;
    QLabel *lblDOB;
    QLabel *lblLongPlay;
    QLabel *lblPrevLongPlay;
    QLabel *lblRapidPlay;
    QLabel *lblPrevRapidPlay;
    QLabel *lblClubs;

private:
    std::shared_ptr<cBCFMaster> bcfMaster_;
};
