#include "ui/GuardedApplication.h"

#include "ui/Pictures.h"

#include <gtest/gtest.h>

#include <QPalette>
#include <QScopeGuard>

namespace zolt::test {
namespace {

TEST(GuardedApplicationTest, HintsCanBeReadWhereADesktopForgetsThem)
{
    const QPalette before = QApplication::palette();
    const auto back = qScopeGuard([&] { QApplication::setPalette(before); });
    QPalette dark = darkPalette();
    const QColor own = dark.color(QPalette::PlaceholderText);
    QApplication::setPalette(dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::PlaceholderText), own) << "the desktop's own stays";
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    QApplication::setPalette(dark);
    QColor half = dark.color(QPalette::Text);
    half.setAlpha(128);
    EXPECT_EQ(QApplication::palette().color(QPalette::PlaceholderText), half);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), dark.color(QPalette::Base));
}

} // namespace
} // namespace zolt::test
