// The about tab: what this program is, and which of its tools are there.
#pragma once

#include "ui/LatestJob.h"
#include "ui/pages/TabPage.h"

#include <memory>

namespace Ui {
class AboutTab;
}

namespace zolt {

class ZOLTController;
struct ToolsFilling;

/// Main thread.
class AboutPage : public TabPage
{
public:
    explicit AboutPage(ZOLTController& controller, QWidget* parent = nullptr);
    ~AboutPage() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refill();
    void listTools();
    static QString place(const ToolsFilling& filling);

    const std::unique_ptr<Ui::AboutTab> form_;
    LatestJob looking_;
};

} // namespace zolt
