#include "ui/cntl_master_list.h"

#include "register/contact.h"
#include "register/master.h"
#include "ui/cntl_data_list.h"
#include "ui/data_list_model.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

namespace {

const QString SearchTab = QStringLiteral("?");

} // namespace

cntlMasterList::cntlMasterList(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cntlMasterList"));
    fmMaster = new QWidget(this);
    fmMaster->setObjectName(QStringLiteral("fmMaster"));

    tabChar = new QTabBar(fmMaster);
    tabChar->setObjectName(QStringLiteral("tabChar"));
    tabChar->setExpanding(false);
    tabChar->setUsesScrollButtons(true);
    tabChar->setDrawBase(true);
    tabChar->setFocusPolicy(Qt::TabFocus);
    // The arrow keys move along the tabs; Tab goes from the tabs to the list, not to
    // the tab strip's scroll arrows.
    for (QWidget *arrow : tabChar->findChildren<QToolButton *>())
        arrow->setFocusPolicy(Qt::NoFocus);
    tabChar->addTab(SearchTab);
    tabChar->setTabData(0, SearchTab);
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const QString key = QString(QLatin1Char(letter));
        tabChar->setTabData(tabChar->addTab(key), key);
    }

    searchRow = new QWidget(fmMaster);
    searchRow->setObjectName(QStringLiteral("searchRow"));
    // Alt+N stays with the New command of the window around the list.
    lblSearch = new QLabel(tr("Na&me:"), searchRow);
    lblSearch->setObjectName(QStringLiteral("lblSearch"));
    txtSearch = new QLineEdit(searchRow);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setMaxLength(50);
    lblSearch->setBuddy(txtSearch);
    cmdSearch = new QPushButton(tr("&Search"), searchRow);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setEnabled(false);
    cmdSearch->setAutoDefault(false);
    auto *searchLayout = new QHBoxLayout(searchRow);
    searchLayout->setContentsMargins(0, 0, 0, 0);
    searchLayout->addWidget(lblSearch);
    searchLayout->addWidget(txtSearch, 1);
    searchLayout->addWidget(cmdSearch);

    lstMaster = new cntlDataList(fmMaster);
    lstMaster->setObjectName(QStringLiteral("lstMaster"));

    auto *frameLayout = new QVBoxLayout(fmMaster);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->setSpacing(2);
    frameLayout->addWidget(tabChar);
    frameLayout->addWidget(searchRow);
    frameLayout->addWidget(lstMaster, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fmMaster);

    setTabOrder(tabChar, txtSearch);
    setTabOrder(txtSearch, cmdSearch);
    setTabOrder(cmdSearch, lstMaster->lstData);
    setFocusProxy(lstMaster);

    // The search row is on view only under the search tab, the first.
    tabChar->setCurrentIndex(0);

    connect(tabChar, &QTabBar::currentChanged, this, &cntlMasterList::tabChar_Click);
    connect(txtSearch, &QLineEdit::textChanged, this,
            [this](const QString &text) { cmdSearch->setEnabled(!text.isEmpty()); });
    connect(txtSearch, &QLineEdit::returnPressed, this, [this] {
        if (cmdSearch->isEnabled())
            cmdSearch_Click();
    });
    connect(cmdSearch, &QPushButton::clicked, this, &cntlMasterList::cmdSearch_Click);
    connect(lstMaster, &cntlDataList::SelectionChanged, this, &cntlMasterList::SelectionChanged);
    connect(lstMaster, &cntlDataList::DoubleClicked, this, &cntlMasterList::DoubleClicked);
}

void cntlMasterList::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (prepared_)
        return;
    prepared_ = true;
    // The whole list is read once the window is on screen, before the organiser
    // reaches for a letter, so that the first letter tab shows at once.
    QTimer::singleShot(0, this, [this] { cDataListModel::Prepare(DataListKind(displayType_)); });
}

void cntlMasterList::setDisplayType(qint32 value)
{
    displayType_ = value;
    lstMaster->setDisplayType(value);
}

QString cntlMasterList::SelKey() const
{
    return lstMaster->SelKey();
}

void cntlMasterList::setSelKey(const QString &key)
{
    lstMaster->setSelKey(key);
}

QString cntlMasterList::SelCode() const
{
    return lstMaster->SelCode();
}

QString cntlMasterList::SelName() const
{
    return lstMaster->SelName();
}

void cntlMasterList::setSelName(const QString &name)
{
    lstMaster->setSelName(name);
}

QString cntlMasterList::Tab() const
{
    return tabChar->tabData(tabChar->currentIndex()).toString();
}

void cntlMasterList::SetTab(const QString &key)
{
    if (key.isEmpty())
        return;
    for (int index = 0; index < tabChar->count(); ++index) {
        if (tabChar->tabData(index).toString() == key) {
            if (index == tabChar->currentIndex())
                tabChar_Click(index);
            else
                tabChar->setCurrentIndex(index);
            return;
        }
    }
}

void cntlMasterList::SelSearch(const QString &name)
{
    const qsizetype comma = name.indexOf(u',');
    txtSearch->setText(comma < 0 ? name : name.left(comma + 3));
    SetTab(SearchTab);
}

QString cntlMasterList::Filter() const
{
    return Tab() == SearchTab ? txtSearch->text() : Tab();
}

void cntlMasterList::DisplayList()
{
    lstMaster->setDisplayFilter(Filter());
    lstMaster->DisplayList();
}

void cntlMasterList::SetFocus()
{
    lstMaster->SetFocus();
}

void cntlMasterList::tabChar_Click(int index)
{
    const bool search = tabChar->tabData(index).toString() == SearchTab;
    searchRow->setVisible(search);
    // An empty search box gives the empty list.
    lstMaster->setDisplayFilter(search ? txtSearch->text() : tabChar->tabData(index).toString());
    lstMaster->DisplayList();
}

void cntlMasterList::cmdSearch_Click()
{
    lstMaster->setDisplayFilter(txtSearch->text());
    lstMaster->DisplayList();
    lstMaster->SetFocus();
}

void cntlMasterList::ShowUnderOwnLetter(const QString &id)
{
    std::unique_ptr<cPersonRecord> person;
    if (displayType_ == qint32(DataListKind::Contacts))
        person = std::make_unique<cContact>();
    else
        person = std::make_unique<cMaster>();
    person->Load(id);
    const QString initial = person->Surname().left(1).toUpper();
    const bool searching = Tab() == QLatin1String("?") && !txtSearch->text().isEmpty();
    if (!searching && initial != Tab())
        SetTab(initial);
}

void cntlMasterList::TakeFocusAfterDialog()
{
    SetFocus();
    QTimer::singleShot(0, this, [this] { SetFocus(); });
}
