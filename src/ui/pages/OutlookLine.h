// The quiet line left of the action: what will happen, and what stands against it.
#pragma once

#include <QStringList>
#include <QWidget>

namespace zolt {

/// Always as high as three lines, so that nothing moves when a problem comes or goes. Main thread.
class OutlookLine : public QWidget
{
public:
    explicit OutlookLine(QWidget* parent = nullptr);

    /// @param problems  one sentence each; those that find no room are counted, and stand in the tool tip
    void show(const QString& intention, const QStringList& problems);
    /// What stands there, for tests and for readers aloud.
    QString text() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString problemLine() const;

    QString intention_;
    QStringList problems_;
};

} // namespace zolt
