#include "ui/Pictures.h"
#include "engine/StatusPanelController.h"
#include "engine/ZOLTTask.h"
#include "lossy/LossyTab.h"
#include "platform/images/Image.h"
#include "shell/Constants.h"
#include "shell/PreferencesController.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "shntool/FixTab.h"
#include "shntool/SHNtoolTab.h"
#include "tags/TagFiles.h"
#include "tags/TagsTab.h"
#include "ui/WindowFixture.h"
#include "ui/files/FileListView.h"
#include "ui/files/FilesPanel.h"
#include "ui/queue/StatusQueueView.h"

#include <QDir>
#include <QLabel>
#include <QMessageBox>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

/// A row in whatever state a picture needs.
class PictureTask : public ZOLTTask
{
public:
    static std::shared_ptr<PictureTask> make(ZOLTTaskQueue& queue, const QString& name)
    {
        std::shared_ptr<PictureTask> task(new PictureTask);
        task->setUpWithQueue(&queue);
        task->showTitle(name);
        return task;
    }
};

struct Look
{
    const char* name;
    QPalette (*palette)();
};

void PrintTo(const Look& look, std::ostream* out)
{
    *out << look.name;
}

class PicturesTest : public WindowTest, public testing::WithParamInterface<Look>
{
protected:
    PicturesTest()
    {
        QApplication::setPalette(GetParam().palette());
        QCoreApplication::processEvents();
    }
    ~PicturesTest() override { QApplication::setPalette(lightPalette()); }

    /// Writes the picture down for a person to look at, and holds that something is drawn on the palette's background.
    void picture(QWidget& shown, const QString& name)
    {
        QCoreApplication::processEvents();
        const QImage image = shown.grab().toImage();
        QDir().mkpath(QStringLiteral(ZOLT_PICTURES));
        EXPECT_TRUE(image.save(QStringLiteral(ZOLT_PICTURES "/%1-%2.png").arg(name, QLatin1String(GetParam().name))));
        EXPECT_GT(colourCount(image), 10);
        EXPECT_EQ(image.pixelColor(1, image.height() - 2), GetParam().palette().color(QPalette::Window));
    }
    void addMusic()
    {
        tool(u"flac"_s, "exit 0\n");
        for (int track = 1; track <= 9; ++track)
            file(u"1977-05-08/d1t0%1 Track.flac"_s.arg(track));
        add({pathOf(u"1977-05-08"_s)});
        QTest::qWait(200); // the quiet line has looked ahead
    }
};

TEST_P(PicturesTest, MainWindowEmpty)
{
    picture(window(), u"decode-empty"_s);
}

TEST_P(PicturesTest, MainWindowWithFiles)
{
    addMusic();
    picture(window(), u"decode"_s);
}

TEST_P(PicturesTest, MainWindowWithProblems)
{
    file(u"1977-05-08/d1t01 Track.wav"_s);
    panels_.answerAlert(alertReply::defaultButton); // the WAV file is not the list's
    addMusic();
    add({file(u"other/notes"_s)});
    tab().deleteOriginalsButton->setState(true);
    QTest::qWait(200);
    window().resize(window().minimumSize());
    picture(window(), u"decode-problems"_s);
}

TEST_P(PicturesTest, ShntoolAndFixTabs)
{
    tool(u"shntool"_s, "exit 0\n");
    tool(u"flac"_s, "exit 0\n");
    const QStringList files{file(u"1977-05-08/d1t01.WAV"_s), file(u"1977-05-08/d1t02.flac"_s)};
    const auto show = [&](BaseTab& shown, int tab, const QString& name) {
        program_.selectTab(tab);
        if (shown.fileNames().isEmpty()) shown.addFiles(files);
        shown.displayRelevantOptions();
        runPosted();
        QTest::qWait(200);         // the quiet line has looked ahead
        ASSERT_TRUE(runUntil([&] { // and the sentence of the command stands there
            const auto* const sentence = window().page()->findChild<QLabel*>(u"commandSentence"_s);
            return !sentence || sentence->text() == program_.program().tab<SHNtoolTab>().aboutCommand();
        }));
        picture(window(), name);
    };
    auto& shntool = program_.program().tab<SHNtoolTab>();
    for (const QString& command : {Constants::LEN, Constants::SPLIT, Constants::PAD}) {
        shntool.shntoolCommandMatrix->selectTitle(command);
        shntool.shnLenMatrix->selectTitle(Constants::LEN_BY_DISC);
        show(shntool, 3, u"shntool-"_s + command);
    }
    show(program_.program().tab<FixTab>(), 4, u"fix"_s);
}

TEST_P(PicturesTest, LossyTab)
{
    program_.selectTab(6);
    program_.program().tab<LossyTab>().addFiles({file(u"1977-05-08/d1t01.wav"_s), file(u"1977-05-08/d1t02.flac"_s)});
    runPosted();
    QTest::qWait(200); // the quiet line has looked ahead
    picture(window(), u"lossy"_s);
}

TEST_P(PicturesTest, AboutTab)
{
    program_.selectTab(aboutTab());
    runPosted();
    picture(window(), u"about"_s);
}

TEST_P(PicturesTest, TagsTabWithSeveralFiles)
{
    TagFiles samples;
    auto& tags = program_.program().tab<TagsTab>();
    tags.setUndoFolder(pathOf(u"cache"_s));
    program_.selectTab(aboutTab() - 1);
    for (const QString& name : {u"d1t01 Intro.flac"_s, u"d1t02 Long Road.flac"_s, u"d1t03 Jam.flac"_s}) {
        writeContent(pathOf(name), contentOf(samples.flac()));
        setTagsElsewhere(pathOf(name), {u"TITLE="_s + name, u"ALBUM=Barn Hall"_s});
        tags.addFiles({pathOf(name)});
    }
    runPosted();
    window().page()->files()->list().selectRowNumbers({0});
    runPosted();
    picture(window(), u"tags-one"_s);
    window().page()->files()->selectAll();
    tags.artistText->enterText(u"The Nobodies"_s);
    tags.albumArtImageView->replaceImage(Image::fromData(contentOf(samples.picture("png"))));
    window().page()->pressCommand();
    QTest::qWait(200); // the differences are marked
    picture(window(), u"tags"_s);
}

TEST_P(PicturesTest, QueuePanel)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    const auto add = [this](const QString& name) {
        auto task = PictureTask::make(queue(), name);
        queue().addTask(task);
        return task;
    };
    add(u"d1t01 Promised Land.flac"_s)->stopTask(nullptr);
    const auto failed = add(u"d1t02 A name that is longer than any row of this panel could ever show in full.flac"_s);
    failed->setError(true);
    failed->stopTask(nullptr);
    const auto cancelled = add(u"d1t03.flac"_s);
    cancelled->setCancelled(true);
    cancelled->stopTask(nullptr);
    const auto running = add(u"d1t04.flac"_s);
    running->startTask();
    running->topTextField()->setStringValue(u"Decoding Flac: 42%"_s);
    running->progressIndicator()->setDoubleValue(42);
    add(u"d1t05.flac"_s);
    auto& panel = windowNamed<QWidget>("StatusQueue");
    ASSERT_TRUE(runUntil([&] { return panel.findChild<StatusQueueView*>()->model()->rowCount() == 5; }));
    picture(panel, u"queue"_s);
}

TEST_P(PicturesTest, OutputWindow)
{
    queue().showOutputWindowTitle(u"Verify MD5: show.md5\nd1t01.flac : OK\nd1t02.flac : FAILED\nd1t03.flac : OK\n"_s,
                                  u"Verify MD5"_s);
    runPosted();
    picture(windowNamed<QWidget>("OutputWindow"), u"output"_s);
}

TEST_P(PicturesTest, StringPanel)
{
    ZOLTStringGetterPanel panel;
    panels_.answerModal([&](Window&) {
        runPosted();
        picture(windowNamed<QWidget>("StringGetterPanel"), u"string-panel"_s);
        panel.cancel(nullptr);
    });
    panel.runPanelWithTitleMessageInitialString(std::nullopt, u"Name of the batch:"_s, u"1977-05-08"_s);
}

TEST_P(PicturesTest, StatusPanel)
{
    StatusPanelController controller;
    controller.setText(u"Reading the list of files"_s);
    controller.setProgress(42);
    controller.window()->makeKeyAndOrderFront();
    runPosted();
    picture(windowNamed<QWidget>("StatusPanel"), u"status-panel"_s);
}

TEST_P(PicturesTest, Preferences)
{
    controller().showPreferencePanel(nullptr);
    auto& window = windowNamed<QWidget>("Preferences");
    ASSERT_TRUE(runUntil([&] { return window.isVisible(); }));
    picture(window, u"preferences-general"_s);
    QTest::mouseClick(window.findChild<QAbstractButton*>(u"MetadataItem"_s), Qt::LeftButton);
    const Window& model = *controller().preferencesController().window();
    ASSERT_TRUE(runUntil([&] { return window.height() == Window::contentRectForFrameRect(model.frame()).height(); }));
    picture(window, u"preferences-metadata"_s);
}

INSTANTIATE_TEST_SUITE_P(Looks, PicturesTest, testing::Values(Look{"light", lightPalette}, Look{"dark", darkPalette}),
                         [](const auto& look) { return std::string(look.param.name); });

} // namespace
} // namespace zolt::test
