// Which disc of a show a file belongs to, told from its path. Any thread.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace zolt {

/// What stands between the path's last "d" and the "t" behind it: "2" for ".../live1977d2t03.shn". A path without "d"
/// is taken from its start, and one without "t" behind goes to the end.
QString discKey(const QString& path);

/// The files of one disc, in list order.
struct DiscFiles
{
    QString key;
    QStringList files;
};

/// The files by disc, in the order in which the discs come first in the list.
std::vector<DiscFiles> filesByDisc(const QStringList& files);

} // namespace zolt
