// A whole show, tagged from a setlist and from a cue sheet, read back by other programs, and taken back.
#include "tags/TaggedShow.h"
#include "TagsTabFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class TaggedShow : public TagsTabTest
{
protected:
    TaggedShow()
    {
        QStringList paths;
        for (const QString& name : showFiles())
            paths += file(name, contentOf(sampleFor(name)));
        tab.addFiles(paths);
        tab.setUndoFolder(pathOf(u"cache"_s));
        QList<qsizetype> rows;
        for (qsizetype row = 0; row < paths.size(); ++row) {
            before += contentOf(paths[row]);
            if (hasSound(paths[row])) digests[paths[row]] = soundDigest(paths[row]);
            rows += row;
        }
        select(rows);
    }
    QString sampleFor(const QString& name)
    {
        const QString format = path::extension(name);
        if (format == u"flac") return samples.flac();
        if (format == u"mp3") return samples.mp3();
        if (format == u"m4a") return samples.m4a();
        return format == u"wv" ? samples.wavpack() : samples.ape();
    }
    /// The sample of Monkey's Audio is a header alone, which no decoder takes.
    static bool hasSound(const QString& path) { return path::extension(path) != u"ape"; }

    void expectTitles()
    {
        for (qsizetype row = 0; row < tab.fileNames().count(); ++row) {
            const QString path = tab.fileNames().at(row);
            EXPECT_EQ(tagsAt(row)->titleText(), showTitles()[row]);
            if (!hasSound(path)) continue;
            EXPECT_EQ(soundDigest(path), digests[path]) << path.toStdString();
            if (row > 5) continue; // the programs are slow to start, and these are all formats
            const auto titles = titlesElsewhere(path);
            for (const auto& [program, title] : titles.asKeyValueRange())
                EXPECT_EQ(title, showTitles()[row]) << program.toStdString() << " on " << path.toStdString();
        }
    }
    void expectTakenBack()
    {
        tab.undoWrite(nullptr);
        for (qsizetype row = 0; row < tab.fileNames().count(); ++row)
            EXPECT_EQ(contentOf(tab.fileNames().at(row)), before[row]) << row;
    }

    QList<QByteArray> before;
    QHash<QString, QString> digests;
};

} // namespace

TEST_F(TaggedShow, IsNamedFromASetlist)
{
    TrackNameInputController& names = *controller.trackNameInputController();
    panels_.answerOpenPanel(QStringList{file(u"show.txt"_s, showSetlist())});
    names.loadTrackNamesFromFile(nullptr);
    names.inputOK(nullptr);
    tab.setAutoName(true);
    write();
    expectTitles();
    EXPECT_EQ(tagsAt(22)->trackText(), u"23"_s);
    expectTakenBack();
}

TEST_F(TaggedShow, IsNamedFromACueSheet)
{
    panels_.answerOpenPanel(QStringList{file(u"show.cue"_s, showCueSheet())});
    tab.loadTagsFromCueSheet(nullptr);
    write();
    expectTitles();
    for (qsizetype row = 0; row < 23; ++row) {
        EXPECT_EQ(tagsAt(row)->albumText(), u"Barn Hall"_s);
        EXPECT_EQ(tagsAt(row)->artistText(), u"The Nobodies"_s);
    }
    expectTakenBack();
}
