// The about tab: what this program is, and which of its tools are there.
#pragma once

#include "ui/pages/TabPage.h"

#include <memory>

namespace Ui {
class AboutTab;
}

namespace zolt {

class ZOLTController;

/// Main thread.
class AboutPage : public TabPage
{
public:
    explicit AboutPage(ZOLTController& controller, QWidget* parent = nullptr);
    ~AboutPage() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void listTools();

    const std::unique_ptr<Ui::AboutTab> form_;
};

} // namespace zolt
