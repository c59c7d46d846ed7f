// Finds words in a text.
#pragma once

#include <QPlainTextEdit>
#include <QWidget>

class QLineEdit;

namespace zolt {

/// A line to type in that comes up below the text; hidden until it is called for. Main thread.
class FindBar : public QWidget
{
public:
    explicit FindBar(QWidget* parent = nullptr);

    /// The text that is searched. @param view  outlives this object
    void setView(QPlainTextEdit* view) { view_ = view; }
    /// Comes up with the text that is selected in the view.
    void open();
    void close();
    /// Selects the next place, or the one before, and goes on at the other end of the text.
    void find(bool backward);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void typed(const QString& words);
    void showFound(bool found);

    QPlainTextEdit* view_ = nullptr;
    QLineEdit* const words_;
    QLabel* const told_;
};

} // namespace zolt
