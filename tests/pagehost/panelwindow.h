// SPDX-License-Identifier: MIT
// panelwindow.h -- a window of the editor with texts on its page, for tests of panels.
#ifndef PANELWINDOW_H
#define PANELWINDOW_H

#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/page/textrecord.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/panels.h"
#include "app/pagehost/stylegallery.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/textselection.h"
#include "app/pagehost/tools.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QDir>
#include <QtTest>

/// Lives for one test function.
class PanelWindow
{
public:
    explicit PanelWindow(const PluginLoader *loader)
        : m_loader(loader)
        , m_window((m_framework.setDefaultFont(QStringLiteral("DejaVu Sans"), 24), loader),
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
    void selectAllInEdit()
    {
        view()->setFocus();
        QTest::keyClick(view(), Qt::Key_A, Qt::ControlModifier);
        settle();
    }
    /// An art text that shows its hint, selected.
    CVXRootObject *drawArt()
    {
        m_window.setTool(EditorTool::ArtText);
        const QPoint from = view()->mapFromScene(QPointF(100, 100));
        const QPoint to = view()->mapFromScene(QPointF(300, 200));
        QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, view()->viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier); // QTest::mouseMove() tells no buttons
        QCoreApplication::sendEvent(view()->viewport(), &move);
        QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, to);
        settle();
        return session()->page()->objects().constLast();
    }
    /// Gives the selected texts the warp \a style.
    void bend(int style)
    {
        raise("warpPanel");
        Q_EMIT find<StyleGallery>("warpPanel", "warpGallery")->picked(style);
        settle();
    }
    /// A line of a font that no machine has, selected.
    CVXRootObject *addTextWithMissingFont()
    {
        CVXRootObject *text = m_loader->createText(900, session()->page());
        session()->page()->addObject(text);
        const QString string = documentString(QStringLiteral("strange"),
                                              {QStringLiteral("Never Installed"), 24,
                                               QStringLiteral("#000000"), /*vertical=*/false});
        TextPlace place;
        place.pos = {120, 140};
        loadDocumentString(text, string, inspectDocumentString(string), place);
        session()->select(text);
        settle();
        return text;
    }
    /// Everything that waits for the event loop is done: a panel that comes to be seen is painted, brought
    /// up to date, and has asked for runs.
    void settle()
    {
        turn();
        selection()->readRuns();
        turn();
    }
    void turn()
    {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
    }
    /// Types \a text into \a field in place of what it shows, and takes it.
    void enter(NumberField *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
        settle();
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
    const PluginLoader *m_loader;
    Framework m_framework;
    MainWindow m_window;
};

#endif
