#include "ui/pages/DeletionChoice.h"

#include "platform/errors/Exceptions.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/PreferencesController.h"
#include "shell/Util.h"

#include <QAbstractButton>

namespace zolt {

using namespace Qt::StringLiterals;

DeletionChoice::DeletionChoice(QWidget* parent) : QComboBox(parent)
{
    addItems({u"for good"_s, u"to the trash"_s});
    setAccessibleName(u"What becomes of deleted originals"_s);
    showSetting();
    connect(this, &QComboBox::activated, this,
            [](int index) { guarded("deletion", [index] { PreferencesController::setDeletion(index); }); });
    NotificationCenter::standard().addObserver(this, PreferencesController::deletionChanged, nullptr,
                                               [this](const Notification&) { showSetting(); });
}

DeletionChoice::~DeletionChoice()
{
    NotificationCenter::standard().removeObserver(this, PreferencesController::deletionChanged, nullptr);
}

void DeletionChoice::follow(const QAbstractButton& box)
{
    connect(&box, &QAbstractButton::toggled, this, &DeletionChoice::setApplies);
    setApplies(box.isChecked());
}

void DeletionChoice::showSetting()
{
    setCurrentIndex(Util::deletesToTrash() ? 1 : 0);
}

void DeletionChoice::setApplies(bool applies)
{
    setEnabled(applies);
    setToolTip(applies ? u"Whether deleted originals are gone, or can be restored from the desktop's trash; on all "
                         "pages and in the preferences"_s
                       : u"Originals are kept"_s);
}

} // namespace zolt
