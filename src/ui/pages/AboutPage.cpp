#include "ui/pages/AboutPage.h"

#include "platform/desktop/ToolVersion.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/desktop/ToolsFilling.h"
#include "platform/errors/Exceptions.h"
#include "shell/Wording.h"
#include "shell/ZOLTController.h"
#include "ui/PlainText.h"
#include "ui/Symbols.h"
#include "ui/binding/Bindings.h"
#include "ui_AboutTab.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 64;

/// A tool as the list shows it.
struct ToolState
{
    QString name;
    bool missing = false;
    QString version;
    QString advice; ///< what to do about a missing one
};

std::vector<ToolState> statesOfTools(const std::atomic<bool>& stop)
{
    QHash<QString, MissingTool> missing;
    for (const MissingTool& tool : missingTools(knownTools()))
        missing.insert(tool.name, tool);
    std::vector<ToolState> states;
    for (const QString& name : knownTools()) {
        if (stop) break;
        const bool lacks = missing.contains(name);
        states.push_back({name, lacks, lacks ? QString() : toolVersion(toolPath(name)),
                          lacks ? missingToolMessage(missing[name]) : QString()});
    }
    return states;
}

QString bringer(const ToolState& tool)
{
    const QString package = packageOfTool(tool.name);
    if (!package.isEmpty()) return tool.missing ? u"apt install "_s + package : u"package "_s + package;
    return tool.missing ? u"no package: put the tool there yourself"_s : u"comes with this program"_s;
}

QTreeWidgetItem* rowOf(const ToolState& tool)
{
    auto* const row =
        new QTreeWidgetItem({tool.name, tool.missing ? u"missing"_s : u"found"_s, tool.version, bringer(tool)});
    row->setIcon(1, symbolIcon(tool.missing ? u"cross"_s : u"tick"_s));
    for (int column = 0; column < row->columnCount(); ++column)
        row->setToolTip(column, plainToolTip(tool.advice));
    return row;
}

QString heading(const std::vector<ToolState>& tools)
{
    const auto missing = std::count_if(tools.begin(), tools.end(), [](const auto& tool) { return tool.missing; });
    if (missing == 0) return u"All external tools are there."_s;
    return missing == 1 ? u"1 external tool is missing; what needs it cannot be started."_s
                        : u"%1 external tools are missing; what needs them cannot be started."_s.arg(missing);
}

} // namespace

AboutPage::AboutPage(ZOLTController& controller, QWidget* parent)
    : TabPage(parent), form_(std::make_unique<Ui::AboutTab>())
{
    form_->setupUi(this);
    QFont large = form_->ZoltTitleTextField->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    form_->ZoltTitleTextField->setFont(large);
    form_->pictureLabel->setPixmap(QIcon(u":/icons/zolt.svg"_s).pixmap(pictureSize));
    Bindings bindings(*this);
    bindings.bind(u"ZoltTitleTextField"_s, controller.ZoltTitleTextField);
    bindings.bind(u"buildTextField"_s, controller.buildTextField);
    form_->placeLabel->setText(place({}));
    connect(form_->refillButton, &QPushButton::clicked, this, [this] { guarded("tools", [this] { refill(); }); });
}

AboutPage::~AboutPage() = default;

void AboutPage::showEvent(QShowEvent* event)
{
    TabPage::showEvent(event);
    listTools(); // a person who has just installed one looks here
}

void AboutPage::refill()
{
    form_->placeLabel->setText(place(fillToolsDirectory()));
    listTools();
}

void AboutPage::listTools()
{
    looking_.start([this](const std::atomic<bool>& stop) {
        const auto tools = statesOfTools(stop);
        return [this, tools] {
            form_->toolsHeading->setText(heading(tools));
            form_->toolsList->clear();
            for (const ToolState& tool : tools)
                form_->toolsList->addTopLevelItem(rowOf(tool));
            for (int column = 0; column < form_->toolsList->columnCount(); ++column)
                form_->toolsList->resizeColumnToContents(column);
        };
    });
}

QString AboutPage::place(const ToolsFilling& filling)
{
    const QString where = u"The tools are looked for in %1."_s.arg(toolsDirectory());
    if (!filling.unplaced.isEmpty())
        return where + u" %1 found, but that folder cannot be written to: have root run the installation again."_s.arg(
                           enumerated(filling.unplaced));
    return filling.placed.isEmpty() ? where : where + u" New there: %1."_s.arg(enumerated(filling.placed));
}

} // namespace zolt
