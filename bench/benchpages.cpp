// SPDX-License-Identifier: MIT
#include "bench/benchpages.h"

#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/page/textwarp.h"
#include "host/framework/cvxrootobject.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

constexpr int columnCount = 25;
constexpr int cellWidth = 120;
constexpr int cellHeight = 45;
constexpr int fewestRows = 18; // a page that fills a window
constexpr int boxCharacters = 60;
constexpr int styleCount = 42;
constexpr int warpCount = 15;

/// What stands in a cell of the mixed page.
enum class Cell { Line, Box, WarpedLine, Art };

Cell cellAt(int number)
{
    const int part = number % 20;
    if (part < 10)
        return Cell::Line;
    if (part < 15)
        return Cell::Box;
    return part < 18 ? Cell::WarpedLine : Cell::Art;
}

bool isHan(int number)
{
    return number % 3 == 2;
}

QString words(int characters, bool han)
{
    const QString piece =
        han ? QStringLiteral("天地玄黄，宇宙洪荒。日月盈昃，辰宿列张。寒来暑往，秋收冬藏。")
            : QStringLiteral("Typography is the craft of giving language a lasting visual form. ");
    return piece.repeated(characters / piece.size() + 1).left(characters);
}

QJsonObject look(bool han, int pointSize)
{
    return {{QStringLiteral("font_family"),
             han ? QStringLiteral("Noto Sans CJK SC") : QStringLiteral("Noto Sans")},
            {QStringLiteral("font_pointsize"), pointSize}};
}

QJsonObject writtenText(const QPoint &pos, const QString &text, const QJsonObject &attributes)
{
    return {{QStringLiteral("kind"), QStringLiteral("rich_text")},
            {QStringLiteral("x"), pos.x()},
            {QStringLiteral("y"), pos.y()},
            {QStringLiteral("text"), text},
            {QStringLiteral("attributes"), attributes}};
}

QJsonObject boxed(QJsonObject text, const QSize &size)
{
    text.insert(QStringLiteral("layout"), QStringLiteral("box"));
    text.insert(QStringLiteral("width"), size.width());
    text.insert(QStringLiteral("height"), size.height());
    return text;
}

QJsonObject artText(const QPoint &pos, int number)
{
    const QJsonObject fill{{QStringLiteral("enabled"), true},
                           {QStringLiteral("color"), QStringLiteral("#ff1f4e79")}};
    const QJsonObject record{{QStringLiteral("version"), 1},
                             {QStringLiteral("x"), pos.x()},
                             {QStringLiteral("y"), pos.y()},
                             {QStringLiteral("width"), cellWidth - 10},
                             {QStringLiteral("height"), cellHeight - 5},
                             {QStringLiteral("created"), true},
                             {QStringLiteral("textWord"), QStringLiteral("Art text")},
                             {QStringLiteral("shape"), number % styleCount},
                             {QStringLiteral("fontFamily"), QStringLiteral("Noto Serif")},
                             {QStringLiteral("fontSize"), 192},
                             {QStringLiteral("fill"), fill}};
    return {{QStringLiteral("kind"), QStringLiteral("art_text")},
            {QStringLiteral("record"), record}};
}

QJsonObject mixedObject(int number)
{
    const QPoint pos(cellWidth * (number % columnCount), cellHeight * (number / columnCount));
    const bool han = isHan(number);
    switch (cellAt(number)) {
    case Cell::Box:
        return boxed(writtenText(pos, words(boxCharacters, han), look(han, 7)),
                     QSize(cellWidth - 10, cellHeight - 5));
    case Cell::Art:
        return artText(pos, number);
    case Cell::Line:
    case Cell::WarpedLine:
        break;
    }
    return writtenText(pos, words(han ? 8 : 14, han), look(han, 9));
}

QByteArray pageFile(const QSize &size, const QJsonArray &objects)
{
    const QJsonObject sheet{{QStringLiteral("width"), size.width()},
                            {QStringLiteral("height"), size.height()},
                            {QStringLiteral("dpi"), 96},
                            {QStringLiteral("background"), QLatin1String(benchPageColor)}};
    const QJsonObject page{{QStringLiteral("format"), QStringLiteral("vxpage")},
                           {QStringLiteral("version"), 1},
                           {QStringLiteral("page"), sheet},
                           {QStringLiteral("objects"), objects}};
    return QJsonDocument(page).toJson();
}

TextWarp warpOf(int number)
{
    TextWarp warp;
    warp.style = 1 + number % warpCount;
    warp.value = 0.4;
    return warp;
}

} // namespace

QByteArray plainPage(int objectCount)
{
    QJsonArray objects;
    for (int i = 0; i < objectCount; ++i)
        objects.append(writtenText({40 * (i % columnCount), 20 * (i / columnCount)},
                                   QStringLiteral("object %1").arg(i), {}));
    return pageFile({1000, 800}, objects);
}

QByteArray mixedPage(int objectCount)
{
    QJsonArray objects;
    for (int i = 0; i < objectCount; ++i)
        objects.append(mixedObject(i));
    const int rows = qMax(fewestRows, (objectCount + columnCount - 1) / columnCount);
    return pageFile({columnCount * cellWidth, rows * cellHeight}, objects);
}

QByteArray boxPage(int characters, bool han)
{
    const QSize box(600, 100 + characters / 2); // more room than either script needs
    const QJsonObject text = writtenText({40, 40}, words(characters, han), look(han, 12));
    return pageFile(box + QSize(80, 80), QJsonArray({boxed(text, box)}));
}

bool writeBytes(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

bool writeMixedPage(const PluginLoader &loader, int objectCount, const QString &fileName,
                    QString &error)
{
    QTemporaryDir folder;
    const QString hand = folder.filePath(QStringLiteral("hand.json"));
    const QByteArray content = mixedPage(objectCount);
    if (!writeBytes(hand, content)) {
        error = QStringLiteral("'%1' cannot be written").arg(hand);
        return false;
    }
    const std::unique_ptr<OpenPage> page = OpenPage::load(loader, hand, error);
    if (!page)
        return false;
    const QList<CVXRootObject *> &objects = page->page()->objects();
    for (int i = 0; i < objects.size(); ++i) {
        if (cellAt(i) == Cell::WarpedLine)
            TextObject::setWarp(objects.at(i), warpOf(i));
        objects.at(i)->setPos(objects.at(i)->getPos() + QPointF(1, 1), false); // all are changed
    }
    return page->save(fileName, error);
}
