#pragma once

#include "Controller.h"
#include "TestCase.h"

#include <QTemporaryDir>

/// A test on a new cell, which it can close and open again.
class ControllerFixture : public TestCase
{
protected:
    void makeCell();
    void reopen();
    QString fileName() const { return m_folder->filePath(QStringLiteral("cell")); }
    pendant::Controller& controller() const { return *m_controller; }

    QStringList m_log; ///< of the controller, since it was opened
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<pendant::Controller> m_controller;
};

inline void ControllerFixture::makeCell()
{
    m_controller.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    reopen();
}

inline void ControllerFixture::reopen()
{
    m_controller.reset();
    QString error;
    m_controller = pendant::Controller::open(fileName(), {}, &error);
    QVERIFY2(m_controller, qPrintable(error));
    m_log.clear();
    connect(m_controller.get(), &pendant::Controller::logged, this,
            [this](const QString& text) { m_log << text; });
}
