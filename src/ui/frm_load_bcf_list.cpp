#include "ui/frm_load_bcf_list.h"

frmLoadBCFList::frmLoadBCFList(QWidget *parent)
    : cLoadListDialog(QStringLiteral("frmLoadBCFList"), tr("Select New BCF Master List"),
                      tr("Select the new BCF Grading List to be loaded to Velmora!"),
                      QStringLiteral("Players.dbf"), parent)
{}
