// Texts where the window goes from right to left.
#pragma once

#include <QString>

class QAbstractButton;
class QWidget;

namespace zolt {

/// Puts the labels of a window on the side on which its lines begin, and keeps the words of its buttons and menus in
/// their order. By itself a label goes by the direction of its own words, and would stand across from the controls that
/// it is about; "Choose…" on a button would begin with its dots.
void keepTextsOnTheirSide(QWidget& window);

/// The words stand on the button; a mnemonic that it has been given stays while the words are the same.
void showWords(QAbstractButton& button, const QString& words);

} // namespace zolt
