// Precompiled for everything that draws windows.
#pragma once

#include "platform/base.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QWidget>
