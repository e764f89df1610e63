// SPDX-License-Identifier: MIT
// What a screen reader says of the window: everything that takes the focus, and every command, has a name.
#include "tests/pagehost/objectwindow.h"

#include "app/pagehost/recovery.h"
#include "app/pagehost/recoverydialog.h"
#include "app/pagehost/translations.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QRegularExpression>
#include <QTabBar>

#include <algorithm>

namespace {

/// Qt's own parts of a control, which speaks for them; the tabs of a bar have names of their own.
bool isPartOfControl(const QWidget *widget)
{
    const QWidget *const parent = widget->parentWidget();
    const auto *const area = qobject_cast<const QAbstractScrollArea *>(parent);
    return qobject_cast<const QTabBar *>(widget) || qobject_cast<const QAbstractSpinBox *>(parent)
           || qobject_cast<const QComboBox *>(parent) || (area && area->viewport() == widget)
           || widget->inherits("QComboBoxPrivateContainer")
           || (parent && parent->inherits("QComboBoxPrivateContainer"));
}

QString nameOf(QWidget *widget)
{
    QAccessibleInterface *const described = QAccessible::queryAccessibleInterface(widget);
    return described ? described->text(QAccessible::Name) : QString();
}

/// What stands for a widget or a command in a message: "class objectName in parent".
QString label(const QObject *object)
{
    const QObject *const parent = object->parent();
    return QStringLiteral("%1 %2 in %3")
        .arg(QLatin1String(object->metaObject()->className()), object->objectName(),
             parent ? parent->objectName() + QLatin1Char(' ')
                          + QLatin1String(parent->metaObject()->className())
                    : QString());
}

/// Names by what they belong to: of all that takes the focus within \a window.
QMap<QString, QString> focusNames(QWidget *window)
{
    QMap<QString, QString> names;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const bool takesFocus = widget->focusPolicy() != Qt::NoFocus;
        if (takesFocus && !isPartOfControl(widget) && !qobject_cast<QMenu *>(widget))
            names.insert(QStringLiteral("%1 #%2").arg(label(widget)).arg(names.size()),
                         nameOf(widget));
    }
    return names;
}

/// The same of all commands that stand in a menu or on a bar, those that menus are opened by too.
QMap<QString, QString> commandNames(QWidget *window)
{
    QMap<QString, QString> names;
    const QList<QAction *> actions = window->findChildren<QAction *>();
    for (const QAction *action : actions) {
        const bool isOfControl = qobject_cast<QLineEdit *>(action->parent()) != nullptr;
        const QList<QWidget *> places = action->associatedWidgets();
        const bool isShown = std::any_of(places.begin(), places.end(), [](const QWidget *place) {
            return !place->objectName().endsWith(QLatin1String("_ext_button")); // Qt's own
        });
        if (!action->isSeparator() && !isOfControl && isShown)
            names.insert(QStringLiteral("%1 #%2").arg(label(action)).arg(names.size()),
                         action->text());
    }
    return names;
}

QString joined(const QStringList &lines)
{
    return lines.join(QLatin1String("; "));
}

QStringList withoutName(const QMap<QString, QString> &names)
{
    QStringList found;
    for (auto it = names.begin(); it != names.end(); ++it) {
        if (it.value().trimmed().isEmpty())
            found.append(it.key());
    }
    return found;
}

/// What is still in English: words, where single letters and names of files are the same everywhere.
QStringList withoutHan(const QMap<QString, QString> &names)
{
    static const QRegularExpression han(QStringLiteral("\\p{Han}"));
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{2,}"));
    QStringList found;
    for (auto it = names.begin(); it != names.end(); ++it) {
        if (it.value().contains(word) && !it.value().contains(han))
            found.append(it.key() + QLatin1String(": ") + it.value());
    }
    return found;
}

} // namespace

class TestAccessible : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everythingHasNameInEnglish();
    void everythingHasNameInChinese();

private:
    static void checkWindow(ObjectWindow &window);

    PluginLoader m_loader;
};

void TestAccessible::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestAccessible::checkWindow(ObjectWindow &window)
{
    const QMap<QString, QString> focus = focusNames(window.window());
    const QMap<QString, QString> commands = commandNames(window.window());
    QVERIFY2(focus.size() > 40, qPrintable(QString::number(focus.size())));
    QVERIFY2(commands.size() > 80, qPrintable(QString::number(commands.size())));
    QCOMPARE(joined(withoutName(focus)), QString());
    QCOMPARE(joined(withoutName(commands)), QString());
}

void TestAccessible::everythingHasNameInEnglish()
{
    ObjectWindow window(&m_loader);
    checkWindow(window);
    RecoveryDialog dialog({}, window.window());
    QCOMPARE(joined(withoutName(focusNames(&dialog))), QString());
}

void TestAccessible::everythingHasNameInChinese()
{
    installTranslations(QCoreApplication::instance(),
                        QLocale(QLocale::Chinese, QLocale::SimplifiedHanScript, QLocale::China));
    ObjectWindow window(&m_loader);
    checkWindow(window);
    QCOMPARE(joined(withoutHan(focusNames(window.window()))), QString());
    QCOMPARE(joined(withoutHan(commandNames(window.window()))), QString());
    RecoveryDialog dialog({}, window.window());
    QCOMPARE(joined(withoutName(focusNames(&dialog))), QString());
    QCOMPARE(joined(withoutHan(focusNames(&dialog))), QString());
}

QTEST_MAIN(TestAccessible)

#include "tst_accessible.moc"
