// The list of items ("ilst") in an M4A file's index.
#pragma once

#include "tags/mp4/Mp4Box.h"

namespace zolt {

/// The list; null if the file has none.
const Mp4Box* findItemList(const Mp4Box& index);

/// The list, made with what has to be around it where there is none.
Mp4Box& itemList(Mp4Box& index);

/// True if the item's values lie in it one behind the other without a fault.
bool isWholeItem(const Mp4Box& item);

/// Puts the item in the place of the first one of its kind and removes further ones, or adds it at the end.
/// Of several pictures in one item only the first is replaced.
void replaceItem(Mp4Box& list, Mp4Box item);

} // namespace zolt
