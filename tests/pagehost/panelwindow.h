// SPDX-License-Identifier: MIT
// panelwindow.h -- a window of the editor with texts on its page, for tests of panels.
#ifndef PANELWINDOW_H
#define PANELWINDOW_H

#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/panels.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/textselection.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QDir>
#include <QtTest>

/// Lives for one test function.
class PanelWindow
{
public:
    explicit PanelWindow(const PluginLoader *loader)
        : m_window((m_framework.setDefaultFont(QStringLiteral("DejaVu Sans"), 24), loader),
                   &m_framework)
    {
        m_window.show();
        if (!QTest::qWaitForWindowActive(&m_window))
            qWarning("the window does not become active");
        m_window.view()->setFocus();
    }

    MainWindow *window() { return &m_window; }
    PageSession *session() const { return m_window.session(); }
    QUndoStack *steps() const { return session()->undoStack(); }
    TextSelection *selection() const { return m_window.panels()->selection(); }
    PageView *view() const { return m_window.view(); }
    CVXRootObject *object(int place) const { return session()->page()->objects().value(place); }

    /// A line of text at \a pos (scene), no longer in edit, selected.
    CVXRootObject *writeLine(const QPointF &pos, const QString &text)
    {
        CVXRootObject *line = startLine(pos, text);
        QTest::keyClick(view(), Qt::Key_Escape);
        settle();
        return line;
    }
    /// The same, still in edit.
    CVXRootObject *startLine(const QPointF &pos, const QString &text)
    {
        view()->setFocus();
        m_window.setTool(EditorTool::Text);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, view()->mapFromScene(pos));
        QTest::keyClicks(view(), text);
        settle();
        return session()->page()->objects().constLast();
    }
    /// Selects so many characters ahead of the caret of the edited text.
    void selectBack(int characters)
    {
        for (int i = 0; i < characters; ++i)
            QTest::keyClick(view(), Qt::Key_Left, Qt::ShiftModifier);
        settle();
    }
    /// Everything that waits for the event loop is done.
    void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        selection()->readRuns();
    }
    QVariant attribute(CVXRootObject *object, const char *key) const
    {
        AttributeMap attributes;
        object->getAllAttributes(attributes);
        return attributes.value(QLatin1String(key));
    }
    /// The control of the panel \a panel that is called \a name.
    template<typename Control>
    Control *find(const char *panel, const char *name)
    {
        auto *found = m_window.findChild<QWidget *>(QLatin1String(panel));
        return found ? found->findChild<Control *>(QLatin1String(name)) : nullptr;
    }
    /// The panel in front of those that share its place.
    QWidget *raise(const char *panel)
    {
        auto *found = m_window.findChild<QWidget *>(QLatin1String(panel));
        for (QWidget *widget = found; widget; widget = widget->parentWidget()) {
            if (widget->inherits("QDockWidget"))
                widget->raise();
        }
        settle();
        return found;
    }
    /// Keeps a picture of the window in the folder that VX_PICTURES names, when it is set.
    void keepPicture(const char *name)
    {
        const QString folder = qEnvironmentVariable("VX_PICTURES");
        if (!folder.isEmpty())
            m_window.grab().save(QDir(folder).filePath(QLatin1String(name)));
    }

private:
    Framework m_framework;
    MainWindow m_window;
};

#endif
