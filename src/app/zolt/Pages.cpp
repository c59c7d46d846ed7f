#include "app/zolt/Pages.h"

#include "app/Program.h"
#include "decode/DecodeTab.h"
#include "shell/Constants.h"
#include "ui/pages/AboutPage.h"
#include "ui/pages/DecodePage.h"

namespace zolt {

MainWindow::PageBuilders pagesOf(Program& program)
{
    return {
        {Constants::DECODE, [&program](QWidget* parent) { return new DecodePage(program.tab<DecodeTab>(), parent); }},
        {Constants::ABOUT, [&program](QWidget* parent) { return new AboutPage(program.controller(), parent); }},
    };
}

} // namespace zolt
