#pragma once

#include "Controller.h"

#include <QTemporaryDir>

/// A new cell in a folder that goes with it.
class TestCell
{
public:
    TestCell();

    pendant::Controller& operator*() const { return *controller; }
    pendant::Controller* operator->() const { return controller.get(); }

private:
    QTemporaryDir folder;
    std::unique_ptr<pendant::Controller> controller;
};

inline TestCell::TestCell()
{
    QString error;
    controller =
        pendant::Controller::open(folder.filePath(QStringLiteral("cell.sqlite")), {}, &error);
    if (!controller)
        qFatal("%s", qPrintable(error));
}
