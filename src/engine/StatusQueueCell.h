// Lays out a task's four controls in its row.
#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ProgressIndicator.h"
#include "platform/controls/TextField.h"

#include <QRectF>
#include <QSizeF>

#include <memory>

namespace zolt {

/// One cell serves all rows: before a row is drawn it is given that row's controls. Main thread.
class StatusQueueCell
{
public:
    std::shared_ptr<ProgressIndicator> progressIndicator() const { return progressIndicator_; }
    void setProgressIndicator(const std::shared_ptr<ProgressIndicator>& bar) { progressIndicator_ = bar; }
    std::shared_ptr<Button> cancelButton() const { return cancelButton_; }
    void setCancelButton(const std::shared_ptr<Button>& button) { cancelButton_ = button; }
    std::shared_ptr<TextField> textField() const { return textField_; }
    void setTextField(const std::shared_ptr<TextField>& field) { textField_ = field; }
    std::shared_ptr<TextField> topTextField() const { return topTextField_; }
    void setTopTextField(const std::shared_ptr<TextField>& field) { topTextField_ = field; }

    /// Where the row's controls lie, in the table's units.
    struct Places
    {
        QRectF progressIndicator;
        QRectF textField;
        QRectF topTextField;
        QRectF cancelButton;
    };
    /// Where the four controls go in the row's frame. Downwards: name, bar (stop button on its right), status. Uses the
    /// upper 46 units.
    Places drawInteriorWithFrameInView(const QRectF& frame) const;

private:
    std::shared_ptr<ProgressIndicator> progressIndicator_;
    std::shared_ptr<Button> cancelButton_;
    std::shared_ptr<TextField> textField_;
    std::shared_ptr<TextField> topTextField_;
};

} // namespace zolt
