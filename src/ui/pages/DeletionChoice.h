// What becomes of originals that are deleted, chosen where their deletion is.
#pragma once

#include <QComboBox>

class QAbstractButton;

namespace zolt {

/// Shows and saves the setting that the preferences show too. Main thread.
class DeletionChoice : public QComboBox
{
public:
    explicit DeletionChoice(QWidget* parent = nullptr);
    ~DeletionChoice() override;

    /// Greyed, with the reason as tool tip, while the box that has originals deleted is off.
    void follow(const QAbstractButton& box);

private:
    void showSetting();
    void setApplies(bool applies);
};

} // namespace zolt
