#include "ui/pages/AboutPage.h"

#include "platform/desktop/ToolsDirectory.h"
#include "shell/ZOLTController.h"
#include "ui/Symbols.h"
#include "ui/binding/Bindings.h"
#include "ui_AboutTab.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 64;

QTreeWidgetItem* toolRow(const QString& name, bool missing)
{
    const QString package = packageOfTool(name);
    auto* const row = new QTreeWidgetItem({name, missing ? u"missing"_s : u"found"_s,
                                           package.isEmpty() ? u"none: put the tool there yourself"_s : package});
    row->setIcon(1, symbolIcon(missing ? u"cross"_s : u"tick"_s));
    if (missing) row->setToolTip(1, missingToolMessage({name, package}));
    return row;
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
    listTools();
}

AboutPage::~AboutPage() = default;

void AboutPage::showEvent(QShowEvent* event)
{
    TabPage::showEvent(event);
    listTools(); // a person who has just installed one looks here
}

void AboutPage::listTools()
{
    QSet<QString> missing;
    for (const MissingTool& tool : missingTools(knownTools()))
        missing += tool.name;
    form_->toolsHeading->setText(
        missing.isEmpty() ? u"All external tools are there."_s
        : missing.size() == 1
            ? u"1 external tool is missing; what needs it cannot be started."_s
            : u"%1 external tools are missing; what needs them cannot be started."_s.arg(missing.size()));
    form_->toolsList->clear();
    for (const QString& name : knownTools())
        form_->toolsList->addTopLevelItem(toolRow(name, missing.contains(name)));
    for (int column = 0; column < form_->toolsList->columnCount(); ++column)
        form_->toolsList->resizeColumnToContents(column);
    form_->placeLabel->setText(u"The tools are looked for in %1"_s.arg(toolsDirectory()));
}

} // namespace zolt
