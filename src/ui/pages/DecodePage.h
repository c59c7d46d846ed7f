// The Decode tab as a person meets it.
#pragma once

#include "ui/LatestJob.h"
#include "ui/pages/TabPage.h"

#include <QTimer>

#include <memory>

namespace Ui {
class DecodeTab;
}

namespace zolt {

class DecodeTab;
struct WorkPlan;

/// Main thread.
class DecodePage : public TabPage
{
public:
    /// @param tab  outlives this object's use
    explicit DecodePage(DecodeTab& tab, QWidget* parent = nullptr);
    ~DecodePage() override;

    void addFiles() override;
    /// Presses the tab's command, unless something is known that would make it fail: a tool that is missing, or a list
    /// that holds nothing to decode. Files that the command passes over stay in the list, so that they are not lost.
    void pressCommand() override;
    QString commandName() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void bindOutlets();
    void refreshOutlook();
    void lookAhead();
    bool canStart(const WorkPlan& plan) const;

    const std::unique_ptr<Ui::DecodeTab> form_;
    DecodeTab& tab_;
    QTimer pause_;
    LatestJob lookingAhead_;
};

} // namespace zolt
