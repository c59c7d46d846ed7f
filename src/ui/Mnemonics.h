// One key for each control of a page.
#pragma once

#include <QSet>
#include <QWidget>

namespace zolt {

/// The letter that a text marks with an ampersand, in lower case; none (null) where it marks none.
QChar mnemonicOf(const QString& text);

/// Gives each button, and each label of a field, that has none a letter of its own words, as far as there are letters
/// left; one that marks a letter which is taken gets another. Main thread.
/// @param taken  letters that are used outside the page, in lower case
void assignMnemonics(QWidget& page, QSet<QChar> taken);

} // namespace zolt
