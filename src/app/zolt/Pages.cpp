#include "app/zolt/Pages.h"

#include "app/Program.h"
#include "shell/Constants.h"
#include "ui/AboutPage.h"
#include "ui/DecodePage.h"

namespace zolt {

MainWindow::PageBuilders pagesOf(Program& program)
{
    return {
        {Constants::DECODE, [&program](QWidget* parent) { return new DecodePage(program.decodeTab(), parent); }},
        {Constants::ABOUT, [&program](QWidget* parent) { return new AboutPage(program.controller(), parent); }},
    };
}

} // namespace zolt
