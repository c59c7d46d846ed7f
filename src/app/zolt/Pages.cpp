#include "app/zolt/Pages.h"

#include "app/Program.h"
#include "checksum/ChecksumTab.h"
#include "decode/DecodeTab.h"
#include "encode/EncodeTab.h"
#include "lossy/LossyTab.h"
#include "shell/Constants.h"
#include "shntool/FixTab.h"
#include "shntool/SHNtoolTab.h"
#include "shntool/SectorBoundary.h"
#include "tags/TagsTab.h"
#include "ui/pages/AboutPage.h"
#include "ui/pages/CommandPage.h"
#include "ui/pages/TagsPage.h"
#include "ui_ChecksumChoices.h"
#include "ui_DecodeChoices.h"
#include "ui_EncodeChoices.h"
#include "ui_FixChoices.h"
#include "ui_LossyChoices.h"
#include "ui_ShntoolChoices.h"
#include "ui_TagsChoices.h"
#include "ui_UtilChoices.h"
#include "util/UtilTab.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// Lays out the choices as an interface description has them.
template <class Form> void setUp(QWidget& choices)
{
    Form().setupUi(&choices);
}

/// The page of a tab that needs no more than a form.
template <class Tab, class Form> MainWindow::PageBuilder page(Program& program, const QString& command)
{
    return [&program, command](QWidget* parent) {
        return new CommandPage(program.tab<Tab>(), {command, setUp<Form>}, parent);
    };
}

/// A label that says what one of the tab's operations says.
template <class Tab> LiveLine saying(const Tab& tab, QString (Tab::*words)() const)
{
    return [&tab, words] { return [text = (tab.*words)()](const std::atomic<bool>&) { return text; }; };
}

MainWindow::PageBuilder encodePage(Program& program)
{
    return [&program](QWidget* parent) {
        auto& tab = program.tab<EncodeTab>();
        return (new CommandPage(tab, {u"&Encode"_s, setUp<Ui::EncodeChoices>}, parent))
            ->withLiveLine(u"flacLevelLabel"_s, saying(tab, &EncodeTab::flacLevelInWords))
            ->withLiveLine(u"apeLevelLabel"_s, saying(tab, &EncodeTab::apeLevelInWords));
    };
}

MainWindow::PageBuilder lossyPage(Program& program)
{
    return [&tab = program.tab<LossyTab>()](QWidget* parent) {
        return (new CommandPage(tab, {u"&Encode"_s, setUp<Ui::LossyChoices>}, parent))
            ->withLiveLine(u"levelLabel"_s, saying(tab, &LossyTab::levelInWords));
    };
}

MainWindow::PageBuilder checksumPage(Program& program)
{
    return [&tab = program.tab<ChecksumTab>()](QWidget* parent) {
        const auto page = new CommandPage(tab, {u"&Test"_s, setUp<Ui::ChecksumChoices>}, parent);
        page->withLiveLine(u"kindSentence"_s, saying(tab, &ChecksumTab::aboutChoice));
        return page->withCommand([&tab] {
            const QStringList words{u"&Test"_s, u"Cr&eate"_s, u"&Verify"_s};
            return words.value(tab.commandOptions->selectedRow(), words.first());
        });
    };
}

MainWindow::PageBuilder shntoolPage(Program& program)
{
    return [&tab = program.tab<SHNtoolTab>()](QWidget* parent) {
        return (new CommandPage(tab, {u"&Run"_s, setUp<Ui::ShntoolChoices>}, parent))
            ->withLiveLine(u"commandSentence"_s, saying(tab, &SHNtoolTab::aboutCommand));
    };
}

MainWindow::PageBuilder fixPage(Program& program)
{
    return [&tab = program.tab<FixTab>()](QWidget* parent) {
        return (new CommandPage(tab, {u"&Fix"_s, setUp<Ui::FixChoices>}, parent))
            ->withLiveLine(u"levelLabel"_s, saying(tab, &FixTab::flacLevelInWords))
            ->withLiveLine(u"boundaries"_s, [&tab] {
                return [files = tab.fileNames().copy()](const std::atomic<bool>& stop) {
                    const BoundaryWords words = boundariesInWords(files, stop);
                    return LiveWords(words.sentences, words.list);
                };
            });
    };
}

MainWindow::PageBuilder tagsPage(Program& program)
{
    return [&tab = program.tab<TagsTab>()](QWidget* parent) {
        return new TagsPage(tab, {u"&Write Tags"_s, setUp<Ui::TagsChoices>}, parent);
    };
}

} // namespace

MainWindow::PageBuilders pagesOf(Program& program)
{
    return {
        {C::DECODE, page<DecodeTab, Ui::DecodeChoices>(program, u"&Decode"_s)},
        {C::ENCODE, encodePage(program)},
        {C::CHECKSUM, checksumPage(program)},
        {C::SHNTOOL, shntoolPage(program)},
        {C::FIX_SBE, fixPage(program)},
        {C::UTIL, page<UtilTab, Ui::UtilChoices>(program, u"&Start"_s)},
        {C::LOSSY, lossyPage(program)},
        {C::TAGS, tagsPage(program)},
        {C::ABOUT, [&program](QWidget* parent) { return new AboutPage(program.controller(), parent); }},
    };
}

} // namespace zolt
