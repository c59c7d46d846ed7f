// A Tags tab with real files.
#pragma once

#include "shntool/TrackNameInputController.h"
#include "support/TabFixture.h"
#include "tags/TagFiles.h"
#include "tags/TagRoutes.h"
#include "tags/TagsTab.h"

namespace zolt::test {

class TagsTabTest : public TabFixture<TagsTab>
{
protected:
    TagsTabTest() : TabFixture(Constants::TAGS) {}

    /// Copies of one sample under these names, listed in this order as long as the names sort so.
    void list(const QStringList& names, const QString& sample)
    {
        QStringList paths;
        for (const QString& name : names)
            paths += file(name, contentOf(sample));
        tab.addFiles(paths);
    }
    void select(const QList<qsizetype>& rows) { tab.tableView->selectRows(rows); }
    std::shared_ptr<TagsObject> tagsAt(qsizetype row)
    {
        const QString path = tab.fileNames().at(row);
        return tagRouteFor(path)->read(path);
    }
    void enterNames(const QStringList& names)
    {
        controller.trackNameInputController()->inputText->setString(names.join(u'\n'));
        controller.trackNameInputController()->inputOK(nullptr);
    }
    void write() { tab.executeCommand(nullptr); }
    void type(const QString& artist) { tab.artistText->enterText(artist); }
    QString artistAt(qsizetype row) { return textOrEmpty(tagsAt(row)->artistText()); }
    /// Runs a test's own work in the middle of a run, ahead of its file number `file`, counted from 1.
    void inTheMiddle(int file, std::function<void()> work)
    {
        tab.setBetweenFiles([work, left = file]() mutable {
            if (--left == 0) work();
            return true;
        });
    }

    TagFiles samples;
};

} // namespace zolt::test
