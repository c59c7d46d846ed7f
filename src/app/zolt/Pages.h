// Which page shows which tab.
#pragma once

#include "ui/MainWindow.h"

namespace zolt {

class Program;

/// The pages of all tabs that are built, by label. @param program  outlives the pages
MainWindow::PageBuilders pagesOf(Program& program);

} // namespace zolt
