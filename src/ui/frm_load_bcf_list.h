#pragma once

#include "ui/load_list_dialog.h"

// Picks the dBase file of a new grading list.
class frmLoadBCFList : public cLoadListDialog
{
    Q_OBJECT

public:
    explicit frmLoadBCFList(QWidget *parent = nullptr);
};
