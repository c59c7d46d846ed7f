// The page of the Tags tab.
#pragma once

#include "ui/LatestJob.h"
#include "ui/pages/CommandPage.h"

namespace zolt {

class TagsTab;

/// Marks the fields in which the selected files differ, keeps the window painted while files are written, and brings
/// what came of it into sight. Main thread.
class TagsPage : public CommandPage
{
public:
    /// @param tab  outlives this object's use; its runs can be undone from then on
    TagsPage(TagsTab& tab, const PageForm& form, QWidget* parent = nullptr);
    ~TagsPage() override;

protected:
    QString whatIsWanted() const override;

private:
    bool repaint();
    void showResult();
    void follow();
    void lookForDifferences();
    void markFields(const QSet<QString>& outlets);

    TagsTab& tagsTab_;
    LatestJob reading_;
};

} // namespace zolt
