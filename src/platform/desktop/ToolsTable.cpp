#include "platform/desktop/ToolsTable.h"

#include "platform/desktop/ToolsTableText.h"

#include <algorithm>

namespace zolt {

namespace {

enum Column { Name, Package, Program, Option, Advice };

ToolRow rowOf(const QString& line)
{
    const QStringList fields = line.split(u'|');
    const auto field = [&](Column column) { return fields.value(column).trimmed(); };
    ToolRow row{.name = field(Name),
                .package = field(Package),
                .program = field(Program),
                .question = {},
                .option = {},
                .advice = field(Advice)};
    row.question = field(Option).split(u' ', Qt::SkipEmptyParts);
    if (!row.question.isEmpty()) row.option = row.question.takeLast();
    return row;
}

std::vector<ToolRow> readRows()
{
    std::vector<ToolRow> rows;
    for (const QString& line : QString::fromUtf16(toolsTableText).split(u'\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith(u'#')) rows.push_back(rowOf(line));
    }
    return rows;
}

} // namespace

const std::vector<ToolRow>& toolRows()
{
    static const std::vector<ToolRow> rows = readRows();
    return rows;
}

const ToolRow* toolRow(const QString& name)
{
    const auto& rows = toolRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return each.name == name; });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace zolt
