// The panel that asks for one line of text.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class StringGetterPanel;
}

namespace zolt {

class ZOLTStringGetterPanel;

/// Main thread.
class StringGetterDialog : public QDialog
{
public:
    /// @param panel  outlives this object's use
    explicit StringGetterDialog(ZOLTStringGetterPanel& panel);
    ~StringGetterDialog() override;

    void accept() override;
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    const std::unique_ptr<Ui::StringGetterPanel> form_;
    ZOLTStringGetterPanel& panel_;
};

} // namespace zolt
