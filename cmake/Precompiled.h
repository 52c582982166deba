// Compiled once for all rooms: the headers that nearly every file of ours takes in anyway.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#ifdef QT_WIDGETS_LIB
#include <QApplication>
#include <QPainter>
#include <QWidget>
#endif
