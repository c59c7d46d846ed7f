// A page's choices, kept from one start to the next.
#pragma once

#include "shell/Outlet.h"

#include <QHash>
#include <QString>

namespace zolt {

/// The window's own state: what a tab ties to a setting of the program is left to that, texts are not kept, and what
/// deletes files never comes back switched on. Main thread.
class ChoiceMemory
{
public:
    /// @param page  a name for the page, such as its tab's label
    ChoiceMemory(QString page, Outlets outlets);

    /// A choice of an outlet that is neither kept nor made again: the one before it stays kept. @param choice  as told
    /// in the settings, for a matrix the cell's index
    void passOver(const QString& name, const QString& choice) { passedOver_[name] = choice; }
    /// Makes the choices that were kept; those that were never kept stay as they are.
    void restore() const;
    /// Keeps the choices as they are now. Cheap where nothing has changed.
    void keep() const;

    QString text(const QString& name) const;
    void keepText(const QString& name, const QString& text) const;

private:
    QString key(const QString& name) const;
    bool isPassedOver(const QString& name, const QString& choice) const;

    const QString page_;
    const Outlets outlets_;
    QHash<QString, QString> passedOver_;
};

} // namespace zolt
