// SPDX-License-Identifier: MIT
// objectwindow.h -- a window of the editor with boxes of text on its page, for tests of objects.
#ifndef OBJECTWINDOW_H
#define OBJECTWINDOW_H

#include "app/page/framework.h"
#include "app/page/page.h"
#include "app/page/pluginloader.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QAction>
#include <QDir>
#include <QtTest>

/// Lives for one test function.
class ObjectWindow
{
public:
    explicit ObjectWindow(const PluginLoader *loader)
        : m_window((m_framework.setDefaultFont(QStringLiteral("DejaVu Sans"), 24), loader),
                   &m_framework)
    {
        m_window.show();
        if (!QTest::qWaitForWindowActive(&m_window))
            qWarning("the window does not become active");
        view()->setFocus();
    }

    MainWindow *window() { return &m_window; }
    PageView *view() const { return m_window.view(); }
    QWidget *canvas() const { return view()->viewport(); }
    PageSession *session() const { return m_window.session(); }
    CUndoRedo *steps() const { return session()->undoStack(); }
    const QList<CVXRootObject *> &objects() const { return session()->page()->objects(); }
    QPoint at(const QPointF &scenePos) const { return view()->mapFromScene(scenePos); }
    QString text(int place) const { return TextCommands::plainText(objects().at(place)); }
    QStringList texts() const
    {
        QStringList all;
        for (CVXRootObject *object : objects())
            all.append(TextCommands::plainText(object));
        return all;
    }

    void drag(const QPoint &from, const QPoint &to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mousePress(canvas(), button, modifiers, from);
        for (int step = 1; step <= 4; ++step) { // QTest::mouseMove() tells no buttons
            const QPoint pos = from + (to - from) * step / 4;
            QMouseEvent move(QEvent::MouseMove, pos, canvas()->mapToGlobal(pos), Qt::NoButton,
                             button, modifiers);
            QCoreApplication::sendEvent(canvas(), &move);
        }
        QTest::mouseRelease(canvas(), button, modifiers, to);
    }
    /// A box in edit.
    CVXRootObject *startBox(const QRectF &place, const QString &words)
    {
        m_window.setTool(EditorTool::Text);
        drag(at(place.topLeft()), at(place.bottomRight()));
        QTest::keyClicks(view(), words);
        settle();
        return objects().constLast();
    }
    /// A box that lies exactly there, selected.
    CVXRootObject *writeBox(const QRectF &place, const QString &words)
    {
        CVXRootObject *box = startBox(place, words);
        QTest::keyClick(view(), Qt::Key_Escape);
        box->setSize(place.size(), /*undo=*/false, /*notify=*/true);
        box->setPos(place.topLeft(), /*undo=*/false);
        settle();
        return box;
    }
    void select(const QList<int> &places)
    {
        for (int i = 0; i < objects().size(); ++i)
            objects().at(i)->doSelected(places.contains(i), /*notify=*/false);
        settle();
    }
    void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    QAction *action(const char *name) const
    {
        return m_window.findChild<QAction *>(QLatin1String(name));
    }
    void trigger(const char *name)
    {
        QAction *found = action(name);
        QVERIFY2(found, name);
        found->trigger();
        settle();
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
