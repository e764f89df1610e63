// SPDX-License-Identifier: MIT
#include "app/pagehost/mainwindow.h"

#include "app/page/framework.h"
#include "app/pagehost/busysign.h"
#include "app/pagehost/canvasmenu.h"
#include "app/pagehost/exportcommands.h"
#include "app/pagehost/filecommands.h"
#include "app/pagehost/hoststrings.h"
#include "app/pagehost/objectlist.h"
#include "app/pagehost/objectmenu.h"
#include "app/pagehost/pagedrop.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/panels.h"
#include "app/pagehost/stylenames.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/viewmenu.h"
#include "app/pagehost/windowplace.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QRegularExpression>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr int textObjectDrawn = 243; // command of a text object to the tools
constexpr int statusTime = 10000;    // ms
constexpr int longText = 100000;     // UTF-16 units that are pasted without a question
constexpr QSize firstSize(1300, 800);

const QLatin1String textOperation("text_operation");
const QLatin1String artProperties("arttext_prop");

/// "sub_operator" of a text operation.
enum TextOperation {
    Attributes = 0,
    MissingFonts = 1,
    EditState = 3,
    PointerLeft = 5,
    PointerShape = 7,
};

} // namespace

MainWindow::MainWindow(const PluginLoader *loader, Framework *framework)
    : m_loader(loader)
    , m_framework(framework)
    , m_view(new PageView(this))
    , m_files(new FileCommands(this, loader))
    , m_exports(new ExportCommands(this))
    , m_panels(new Panels(this, m_view, loader))
    , m_canvasMenu(new CanvasMenu(this))
    , m_tools(new QActionGroup(this))
    , m_zoomLabel(new QLabel(this))
{
    setCentralWidget(m_view);
    m_framework->setEventSink(this);
    setHostStrings(*m_framework);
    QMenu *fileMenu = menuBar()->addMenu(tr("&File"));
    m_files->addTo(fileMenu);
    m_exports->addToFileMenu(fileMenu, fileMenu->actions().constLast());
    makeEditMenu();
    new ObjectMenu(this, menuBar()->addMenu(tr("&Object")));
    makeViewMenu();
    makeTools();
    statusBar()->addPermanentWidget(m_zoomLabel);
    showZoom(m_view->zoom());
    connect(m_view, &PageView::zoomChanged, this, &MainWindow::showZoom);
    connect(m_view, &PageView::lockedMet, this, &MainWindow::tellLocked);
    new PageDrop(this); // which the window owns
    connect(m_view, &PageView::objectDrawn, this, [this](CVXRootObject *object) {
        if (TextCommands::isArtText(object))
            setTool(EditorTool::Select); // a rich text asks for it itself
        m_session->takeDrawn(object);
    });
    resize(firstSize);
    setTool(EditorTool::Select);
    takeSession(PageSession::create(m_loader));
}

MainWindow::~MainWindow()
{
    m_view->setSession(nullptr);
    m_panels->setSession(nullptr);
    m_session.reset();
    m_framework->setEventSink(nullptr);
}

void MainWindow::fitScreen()
{
    if (WindowPlace::restore(*this))
        return;
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    const QSize room = screen()->availableSize() - QSize(0, title);
    resize(firstSize.boundedTo(room));
    m_panels->leaveRoom(width());
}

// Menus

QAction *MainWindow::addCommand(QMenu *menu, const char *name, const QString &text,
                                const QList<QKeySequence> &shortcuts, Command command)
{
    QAction *action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(shortcuts);
    connect(action, &QAction::triggered, this, [this, command] { (this->*command)(); });
    return action;
}

void MainWindow::makeEditMenu()
{
    const auto keys = [](QKeySequence::StandardKey key) { return QKeySequence::keyBindings(key); };
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    m_undo = addCommand(menu, "undo", tr("&Undo"), keys(QKeySequence::Undo), &MainWindow::undo);
    m_redo = addCommand(menu, "redo", tr("&Redo"), keys(QKeySequence::Redo), &MainWindow::redo);
    menu->addSeparator();
    m_cut = addCommand(menu, "cut", tr("Cu&t"), keys(QKeySequence::Cut), &MainWindow::cut);
    m_copy = addCommand(menu, "copy", tr("&Copy"), keys(QKeySequence::Copy), &MainWindow::copy);
    m_exports->addToEditMenu(menu, nullptr);
    m_paste = addCommand(menu, "paste", tr("&Paste"), keys(QKeySequence::Paste),
                         &MainWindow::paste);
    m_pastePlain = addCommand(menu, "pastePlain", tr("Paste P&lain Text"),
                              {Qt::CTRL + Qt::SHIFT + Qt::Key_V}, &MainWindow::pastePlain);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &MainWindow::refreshPaste);
    refreshPaste();
    m_delete = addCommand(menu, "delete", tr("&Delete"), {Qt::Key_Delete}, &MainWindow::remove);
    menu->addSeparator();
    addCommand(menu, "selectAll", tr("Select &All"), keys(QKeySequence::SelectAll),
               &MainWindow::selectAll);
}

void MainWindow::makeViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    fillViewMenu(menu, this);
    menu->addSeparator();
    m_panels->addTo(menu->addMenu(tr("&Panels")));
    auto *objects = new ObjectList(this);
    addDockWidget(Qt::RightDockWidgetArea, objects);
    objects->hide(); // until it is asked for
    menu->addSeparator();
    QAction *showObjects = objects->toggleViewAction();
    showObjects->setObjectName(QStringLiteral("showObjects"));
    showObjects->setShortcut(Qt::Key_F7);
    menu->addAction(showObjects);
}

void MainWindow::makeTools()
{
    addTool("selectTool", tr("&Select"), Qt::Key_V, EditorTool::Select);
    addTool("textTool", tr("&Text"), Qt::Key_T, EditorTool::Text);
    addTool("artTool", tr("&Art Text"), Qt::Key_A, EditorTool::ArtText);
    QMenu *menu = menuBar()->addMenu(tr("&Tools"));
    menu->addActions(m_tools->actions());
    menu->addSeparator();
    makeStyleMenu(menu->addMenu(tr("Art St&yle")));
    QToolBar *bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->addActions(m_tools->actions());
}

void MainWindow::addTool(const char *name, const QString &text, const QKeySequence &shortcut,
                         int tool)
{
    QAction *action = m_tools->addAction(text);
    static const QRegularExpression mnemonic(QStringLiteral("\\(&.\\)|&"));
    action->setIconText(QString(text).remove(mnemonic)); // on the tool bar
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    action->setCheckable(true);
    action->setData(tool);
    connect(action, &QAction::triggered, this, [this, tool] {
        m_session->endEdit();
        setTool(tool);
    });
}

/// The styles of art text by name; that of the selection is checked.
void MainWindow::makeStyleMenu(QMenu *menu)
{
    m_artStyle = menu->menuAction();
    m_artStyle->setObjectName(QStringLiteral("artStyle"));
    auto *styles = new QActionGroup(menu);
    styles->setExclusive(false); // none is checked while the selection has several
    for (int style = 0; style < artStyleCount; ++style) {
        QAction *action = styles->addAction(artStyleName(style));
        action->setObjectName(QStringLiteral("artStyle%1").arg(style));
        action->setCheckable(true);
        connect(action, &QAction::triggered, this,
                [this, style] { m_session->setArtStyle(style); });
    }
    menu->addActions(styles->actions());
    connect(menu, &QMenu::aboutToShow, this, [this, styles] {
        const QList<QAction *> actions = styles->actions();
        for (int style = 0; style < actions.size(); ++style)
            actions.at(style)->setChecked(style == m_session->artStyle());
    });
}

void MainWindow::setTool(int tool)
{
    m_framework->setCurrentTool(tool);
    m_view->setTool(tool);
    const QList<QAction *> actions = m_tools->actions();
    for (QAction *action : actions)
        action->setChecked(action->data().toInt() == tool);
}

// The page

void MainWindow::takeSession(std::unique_ptr<PageSession> session)
{
    m_view->setSession(nullptr);
    m_session = std::move(session);
    m_session->page()->setToolController(this);
    m_view->setSession(m_session.get());
    connect(m_session.get(), &PageSession::stateChanged, this, &MainWindow::refresh);
    m_panels->setSession(m_session.get());
    Q_EMIT sessionTaken(m_session.get());
    statusBar()->showMessage(m_session->warnings().join(QLatin1String("; ")));
    refresh();
}

bool MainWindow::openFile(const QString &fileName)
{
    return m_files->openFile(fileName);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_files->mayLeavePage());
    if (event->isAccepted())
        WindowPlace::keep(*this);
}

void MainWindow::refresh()
{
    setWindowTitle(QStringLiteral("%1[*] - pagehost").arg(m_files->shownName()));
    setWindowModified(m_session->isModified());
    const bool isEditing = m_session->editedObject() != nullptr;
    const QList<CVXRootObject *> selected = m_session->page()->getSelectedObjects();
    const auto isFree = [](CVXRootObject *object) { return !object->isLocked(); };
    const auto takesStyle = [isFree](CVXRootObject *object) {
        return TextCommands::isArtText(object) && isFree(object);
    };
    const auto named = [this](const QString &word, const QString &key) {
        return key.isEmpty()
                   ? word
                   : tr("%1 %2", "Undo Move").arg(word, m_framework->getLocalString(key, key));
    };
    m_undo->setText(named(tr("&Undo"), m_session->undoName()));
    m_redo->setText(named(tr("&Redo"), m_session->redoName()));
    m_undo->setEnabled(isEditing || m_session->undoStack()->canUndo());
    m_redo->setEnabled(m_session->canRedo());
    m_copy->setEnabled(isEditing || !selected.isEmpty());
    for (QAction *action : {m_cut, m_delete})
        action->setEnabled(isEditing || std::any_of(selected.begin(), selected.end(), isFree));
    m_artStyle->setEnabled(std::any_of(selected.begin(), selected.end(), takesStyle));
}

/// Not with each change of the page: the clipboard belongs to all programs, and asking it takes time.
void MainWindow::refreshPaste()
{
    const QMimeData *clipboard = QGuiApplication::clipboard()->mimeData();
    m_paste->setEnabled(clipboard && (clipboard->hasText() || PageSession::hasObjects(*clipboard)));
    m_pastePlain->setEnabled(clipboard && clipboard->hasText());
}

// Edit

void MainWindow::editText(CVXRootObject *object)
{
    m_view->setFocus();
    Q_EMIT m_session->aboutToAct();
    if (object->isLocked())
        tellLocked();
    else
        TextCommands::beginEdit(object);
}

void MainWindow::tellLocked()
{
    statusBar()->showMessage(tr("The object is locked"), statusTime);
}

/// Gives the edited text a key, as if it had been pressed, wherever the focus is. False when no text is
/// edited.
bool MainWindow::sendToEdit(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    CVXRootObject *edited = m_session->editedObject();
    if (!edited)
        return false;
    TextCommands::sendKey(edited, key, modifiers);
    return true;
}

void MainWindow::undo()
{
    m_session->undo();
}

void MainWindow::redo()
{
    m_session->redo();
}

void MainWindow::cut()
{
    m_session->cut();
}

void MainWindow::copy()
{
    m_session->copy();
}

void MainWindow::paste()
{
    if (!mayPasteText(/*isPlain=*/false))
        return;
    bool isTaken = false;
    {
        BusySign work(this, tr("Pasting"));
        isTaken = m_session->paste(m_canvasMenu->pastePlace(), work);
    }
    if (!isTaken)
        QMessageBox::warning(this, tr("Paste"), tr("The clipboard holds too many objects."));
}

void MainWindow::pastePlain()
{
    if (mayPasteText(/*isPlain=*/true))
        m_session->pastePlainText(m_canvasMenu->pastePlace());
}

/// Asks ahead of a text that takes long.
bool MainWindow::mayPasteText(bool isPlain)
{
    const QMimeData *clipboard = QGuiApplication::clipboard()->mimeData();
    if (!clipboard
        || (!isPlain && !m_session->editedObject() && PageSession::hasObjects(*clipboard)))
        return true;
    const int length = clipboard->text().size();
    return length <= longText
           || QMessageBox::question(
                  this, tr("Paste"),
                  tr("The text on the clipboard has %L1 characters, which takes a "
                     "while. Paste it?")
                      .arg(length),
                  QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel)
                  == QMessageBox::Ok;
}

void MainWindow::remove()
{
    m_session->noteEditInput();
    if (!sendToEdit(Qt::Key_Delete, Qt::NoModifier))
        m_session->removeSelected();
}

void MainWindow::selectAll()
{
    if (!sendToEdit(Qt::Key_A, Qt::ControlModifier))
        m_session->selectAll();
}

// View

void MainWindow::showZoom(double zoom)
{
    m_zoomLabel->setText(tr("%1 %").arg(qRound(zoom * 100)));
}

// What objects tell

void MainWindow::notifyObjectEvent(CVXRootObject *object, const QString &key,
                                   const AttributeMap &values)
{
    if (!m_session)
        return;
    if (key == artProperties)
        m_panels->takeAttributes(object, values);
    if (key != textOperation)
        return;
    switch (values.value(QStringLiteral("sub_operator")).toInt()) {
    case Attributes:
        m_panels->takeAttributes(object, values);
        break;
    case MissingFonts:
        statusBar()->showMessage(tr("The text cannot be edited: a font is missing (%1)")
                                     .arg(values.value(QStringLiteral("familys"))
                                              .toStringList()
                                              .join(QLatin1String(", "))),
                                 statusTime);
        break;
    case EditState:
        m_session->noteEditState();
        break;
    case PointerLeft:
        m_view->resetPointer();
        break;
    case PointerShape:
        m_view->setDirection(values.value(QStringLiteral("direction")).toString(),
                             values.value(QStringLiteral("horizontal")).toBool());
        break;
    default:
        break;
    }
}

void MainWindow::notifyObjectChanged(CVXRootObject * /*object*/, int /*code*/,
                                     const QString & /*detail*/)
{
}

void MainWindow::postToolCommand(int command, int /*first*/, int /*second*/)
{
    if (command == textObjectDrawn)
        setTool(EditorTool::Select);
}
