// SPDX-License-Identifier: MIT
// wordprocess_fonts.cpp -- CWordProcess: units, the check for installed fonts and their replacement, measuring.
// Changes: the formats of m_document, m_cursor, m_missingFonts, m_replacedFonts. Measuring changes nothing.
#include "wordprocess/cwordprocess.h"

#include "host/fontdatabase/cfontdatabase.h"
#include "layout/outlines.h"
#include "layout/runstyle.h"
#include "layout/textproperties.h"
#include "layout/texttools.h"
#include "layout/units.h"
#include "wordprocess/codepoints.h"
#include "wordprocess/fragmentwalk.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/numbers.h"

#include <QFontMetricsF>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <functional>

namespace {
constexpr double outsideSizeReduction = 2.0; // deliberate: text outside stands a little smaller
const QLatin1String outsideFamily("Roboto");

/// \a id of \a format run through \a rescale, as a double; nothing when \a format has it not.
template<typename Rescale>
void rescaleIfPresent(QTextFormat &format, int id, Rescale rescale)
{
    if (format.hasProperty(id))
        format.setProperty(id, rescale(finiteReal(format.property(id))));
}

/// Rewrites what stands between each \a mark and the next \a end. After a mark that is left alone the search
/// goes on one character behind it.
/// \param rewrite gives the text for mark, content and end together, a null string to leave them alone
QString rewriteBetween(const QString &html, QLatin1String mark, QLatin1String end,
                       const std::function<QString(const QStringRef &)> &rewrite)
{
    QString result;
    int copied = 0;
    int endAt = 0;
    for (int at = html.indexOf(mark); at >= 0;) {
        const int content = at + mark.size();
        if (endAt < content)
            endAt = html.indexOf(end, content);
        if (endAt < 0) // nor behind any later mark
            break;
        int next = content + 1;
        const QString text = rewrite(html.midRef(content, endAt - content));
        if (!text.isNull()) {
            result.append(html.midRef(copied, at - copied));
            result.append(text);
            copied = endAt + end.size();
            next = qMax(next, copied);
        }
        at = html.indexOf(mark, next);
    }
    result.append(html.midRef(copied));
    return result;
}

/// The size of \a format in points of \a documentDpi; points that it has are those of \a dpi.
double pointsOf(const QTextCharFormat &format, double dpi, int documentDpi)
{
    const QFont font = format.font();
    const int pixels = font.pixelSize();
    if (pixels < 1)
        return font.pointSizeF() / 72.0 * dpi / documentDpi * 72.0;
    // Whole pixels that were cut off from the run's own points stand for these: no size is rounded.
    const double exact = finiteReal(format.property(QTextFormat::FontPointSize));
    if (truncated(exact * documentDpi / 72.0) == pixels)
        return exact;
    return double(pixels) / documentDpi * 72.0;
}

QRectF inkOf(const QFont &font, const QString &text)
{
    return textOutline(QPointF(0, 0), font, text).boundingRect();
}

/// Sums up a column: characters that stand upright, and runs that lie on their side.
class ColumnSize
{
public:
    explicit ColumnSize(const QFont &font)
        : m_font(font)
    {
    }

    void addUpright(QChar character)
    {
        flush();
        const QRectF ink = inkOf(m_font, QString(character));
        m_height += lineSpan(ink);
        m_width = qMax(m_width, 2 * ink.x() + ink.width());
    }

    void addLying(QChar character) { m_run += character; }

    QSizeF size()
    {
        flush();
        return QSizeF(m_width, m_height);
    }

private:
    static double lineSpan(const QRectF &ink)
    {
        return 2 * (ink.height() + ink.y()) + ink.height();
    }

    void flush()
    {
        if (m_run.isEmpty())
            return;
        const QRectF ink = inkOf(m_font, m_run);
        m_height += ink.width();
        m_width = qMax(m_width, lineSpan(ink));
        m_run.clear();
    }

    const QFont m_font;
    QString m_run;
    double m_width = 0;
    double m_height = 0;
};

double wholePercent(const QTextCharFormat &format, int id)
{
    return format.hasProperty(id) ? toWhole(format.property(id)) / 100.0 : 1.0;
}

/// The document's families that are not installed, each once, in the order of the text.
QStringList missingFamilies(const QJsonObject &documentString)
{
    QSet<QString> asked;
    QStringList missing;
    const QJsonArray blocks = documentString.value(QLatin1String("fragment")).toArray();
    for (const QJsonValue &runs : blocks) {
        const QJsonArray entries = runs.toArray();
        for (const QJsonValue &entry : entries) {
            const QString family = entry.toObject().value(QLatin1String("font_family")).toString();
            if (family.isEmpty() || asked.contains(family)) // a run without a name lacks no font
                continue;
            asked.insert(family);
            if (!CFontDatabase::instance()->fontExists(family))
                missing.append(family);
        }
    }
    return missing;
}

/// One replacement of a family by another.
struct Replacement {
    QString from;
    QString family; ///< what takes its place
    bool byFormerName;

    bool concerns(const QTextCharFormat &format) const
    {
        const int id = byFormerName ? int(TextProperty::OriginalFamily)
                                    : int(QTextFormat::FontFamily);
        return format.hasProperty(id) && format.stringProperty(id) == from;
    }

    /// The name before the first replacement stays, and is what a second one looks for.
    void apply(QTextCharFormat &format) const
    {
        format.setProperty(QTextFormat::FontFamily, family);
        if (!byFormerName)
            format.setProperty(TextProperty::OriginalFamily, from);
    }
};
} // namespace

double CWordProcess::getPointForDpi(int fromDpi, int toDpi, double value) const
{
    const double points = fromDpi * (value / 72.0) / toDpi * 72.0;
    return std::isfinite(points) ? points : finiteOrZero(value);
}

void CWordProcess::px2pt(double dpi)
{
    const int from = truncated(dpi);
    if (!isDocumentDpi(from))
        return;
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
        const EditBlock step(*m_cursor);
        m_cursor->setPosition(block.position());
        m_cursor->setBlockFormat(rescaled(block.blockFormat(), from));
        forEachRun(*m_cursor, block, [&](bool) {
            m_cursor->setCharFormat(rescaled(m_cursor->charFormat(), from, dpi));
        });
    }
    leaveRewriting();
}

QTextBlockFormat CWordProcess::rescaled(QTextBlockFormat format, int fromDpi) const
{
    const auto rescale = [&](double value) {
        return getPointForDpi(fromDpi, m_documentDpi, value);
    };
    for (int id : {QTextFormat::BlockLeftMargin, QTextFormat::BlockRightMargin})
        format.setProperty(id, rescale(finiteReal(format.property(id))));
    format.setProperty(QTextFormat::BlockIndent,
                       rounded(rescale(toWhole(format.property(QTextFormat::BlockIndent)))));
    rescaleIfPresent(format, TextProperty::SpaceAheadOfBlock, rescale);
    rescaleIfPresent(format, TextProperty::SpaceBehindBlock, rescale);
    return format;
}

QTextCharFormat CWordProcess::rescaled(QTextCharFormat format, int fromDpi, double dpi) const
{
    const double points = pointsOf(format, dpi, m_documentDpi);
    if (std::isfinite(points))
        format.setProperty(QTextFormat::FontPointSize, points);
    const auto rescale = [&](double value) {
        return getPointForDpi(fromDpi, m_documentDpi, value);
    };
    for (int id : {TextProperty::LeadingGap, TextProperty::LetterSpacing,
                   TextProperty::BaselineOffset, TextProperty::RowSpacing})
        rescaleIfPresent(format, id, rescale);
    return format;
}

void CWordProcess::refreshPixel()
{
    if (m_editing)
        return;
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
        const EditBlock step(*m_cursor);
        forEachRun(*m_cursor, block, [&](bool) {
            QTextCharFormat format = m_cursor->charFormat();
            const double points = finiteReal(format.property(QTextFormat::FontPointSize));
            if (points <= 0.0)
                return;
            QFont font = format.font();
            setMeasuringPixelSize(font, truncated(points * m_documentDpi / 72.0));
            format.setFont(font);
            m_cursor->mergeCharFormat(format);
        });
    }
    leaveRewriting();
}

/// A change of units is no act of the user: the document's own undo does not take it back.
void CWordProcess::leaveRewriting()
{
    m_cursor->clearSelection();
    m_document->clearUndoRedoStacks();
}

void CWordProcess::refreshFontPixel2Point()
{
    if (m_editing)
        return;
    px2pt(m_documentDpi);
    notifyTextOperation(TextOperationAttributes, {});
}

QString CWordProcess::replacePtToPx(QString html)
{
    const QLatin1String size("font-size:");
    html = rewriteBetween(html, size, QLatin1String("pt;"), [&](const QStringRef &points) {
        bool isWhole = false;
        const int number = points.toInt(&isWhole);
        const int pixels = truncated(number * screenDpiX() / 72.0 - outsideSizeReduction);
        return isWhole ? size + QStringLiteral("%1px;").arg(pixels) : QString();
    });
    const QLatin1String family("font-family:'");
    const QLatin1Char quote('\'');
    return rewriteBetween(html, family, QLatin1String("'"), [&](const QStringRef &) {
        return QString(family + outsideFamily + quote);
    });
}

bool CWordProcess::fontExists(const QString &documentString)
{
    m_missingFonts = missingFamilies(QJsonDocument::fromJson(documentString.toUtf8()).object());
    m_replacedFonts.clear();
    return m_missingFonts.isEmpty();
}

void CWordProcess::fontReplace(const QString &from, const QString &to, bool byFormerName)
{
    if (m_editing)
        return;
    const QString known = CFontDatabase::instance()->family(to);
    const Replacement replacement{from, known.isEmpty() ? to : known, byFormerName};
    const EditBlock step(*m_cursor);
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
        m_cursor->setPosition(block.position());
        if (block.begin().atEnd()) {
            QTextCharFormat format = m_cursor->charFormat();
            if (!replacement.concerns(format))
                continue;
            replacement.apply(format);
            m_cursor->setCharFormat(format);
            m_cursor->setBlockCharFormat(format);
            continue;
        }
        forEachRun(*m_cursor, block, [&](bool isFirstOfBlock) {
            QTextCharFormat format = m_cursor->charFormat();
            if (!replacement.concerns(format))
                return;
            replacement.apply(format);
            m_cursor->mergeCharFormat(format);
            if (isFirstOfBlock)
                m_cursor->setBlockCharFormat(m_cursor->charFormat());
        });
    }
    m_cursor->clearSelection();
}

QSizeF CWordProcess::getDefaultTextSize(const QString &text)
{
    QFont font = m_cursor->charFormat().font();
    if (!m_editing && m_defaultFollow) {
        font = hostDefaultFont();
        font.setStyle(QFont::StyleItalic);
    }
    font = withBoundedSize(font);
    if (m_textOrientation == Qt::Horizontal)
        return inkOf(font, text).size();
    ColumnSize column(font);
    for (QChar character : text) {
        if (CTextTools::isCJKChar(character))
            column.addUpright(character);
        else
            column.addLying(character);
    }
    return column.size();
}

QSizeF CWordProcess::getTextSize(const QString &text, const QTextCharFormat &format) const
{
    const double spacing = letterSpacing(format);
    const double spaceSize = STextItem::space_size(format, m_documentDpi).width(); // in columns too
    double advance = 0;
    const QSizeF ink =
        fragmentPath(QPointF(0, 0), format, text, advance, 0.0, false).boundingRect().size();
    int leading = 0;
    int trailing = 0;
    STextItem::spaceCounts(text, leading, trailing);
    const double extra = (leading + trailing) * (spacing + spaceSize);
    if (m_textOrientation == Qt::Horizontal)
        return QSizeF(ink.width() + extra, ink.height());
    return QSizeF(ink.width(), ink.height() + extra);
}

double CWordProcess::textWidth(const QString &text, const QTextCharFormat &format) const
{
    const QSizeF size = getTextSize(text, format);
    return m_textOrientation == Qt::Horizontal ? size.width() : size.height();
}

QPainterPath CWordProcess::fragmentPath(const QPointF &pos, const QTextCharFormat &format,
                                        const QString &text, double &advance, double extraSpacing,
                                        bool asHorizontal) const
{
    double lowerEdge = 0;
    return fragmentPath(pos, format, text, advance, lowerEdge, extraSpacing, asHorizontal);
}

QPainterPath CWordProcess::fragmentPath(const QPointF &pos, const QTextCharFormat &format,
                                        const QString &text, double &advance, double &lowerEdge,
                                        double extraSpacing, bool asHorizontal) const
{
    const double scaleY = wholePercent(format, TextProperty::VerticalScale);
    const double scaleX = wholePercent(format, TextProperty::HorizontalScale);
    RunStyle style = readRunStyle(format, m_documentDpi);
    style.font.setOverline(false);
    style.letterSpacing = finiteOrZero(style.gap + style.letterSpacing + extraSpacing);

    QPainterPath path = m_legacyOutlines->text(pos, style.spacedFont(), text);
    const QRectF ink = path.boundingRect();
    double factor = 1.0;
    if (isHalfSize(format)) {
        path = CTextTools::GetScalePath(path, 0.5, 0.5);
        factor = 0.5;
    }
    // Deliberate: the advance takes the factor of the other axis.
    if (m_textOrientation == Qt::Horizontal || asHorizontal) {
        path = CTextTools::GetScalePath(path, scaleX, scaleY);
        factor *= scaleY;
    } else {
        path = CTextTools::GetScalePath(path, scaleY, scaleX);
        path = CTextTools::getRotatePath(path, QPointF(0, 0), 90.0);
        factor *= scaleX;
    }
    advance = (ink.x() + ink.width()) * factor;
    lowerEdge = (ink.y() + ink.height()) * factor;
    return path;
}

/// A length from which every prefix of \a text is wider than \a room, whatever stands behind it; beyond the
/// text when there is none or it is not certain. Looks only near the expected end of the line: measuring a
/// prefix costs time in proportion to its length.
int CWordProcess::surelyWideFrom(const QString &text, const QTextCharFormat &format,
                                 double room) const
{
    constexpr int shortText = 8;
    constexpr int longestJoin = 512; // no script joins characters over a longer distance
    const int nowhere = text.length() + 1;
    if (text.length() <= shortText || !std::isfinite(room))
        return nowhere;
    if (letterSpacing(format) < 0 || STextItem::space_size(format, m_documentDpi).width() < 0)
        return nowhere; // longer text may be shorter
    const bool isRow = m_textOrientation == Qt::Horizontal;
    const double scale = std::abs(
        wholePercent(format, isRow ? TextProperty::HorizontalScale : TextProperty::VerticalScale));
    const double em = QFontMetricsF(readRunStyle(format, m_documentDpi).font).height() * scale;
    // Behind a character that stands for itself more text changes what lies before it by less than an em.
    const double slack = 2 * em;
    int count = qMax(shortText, truncated(qMin<double>(nowhere, 1.125 * room / divisor(em))));
    for (; count < text.length(); count += count / 2) {
        const int longest = qMin(text.length() - 1, count + longestJoin);
        while (count < longest && !standsForItself(text.at(count - 1))
               && !standsForItself(text.at(count)))
            ++count;
        double advance = 0;
        const QSizeF ink = fragmentPath(QPointF(0, 0), format, text.left(count), advance, 0.0,
                                        false)
                               .boundingRect()
                               .size();
        if ((isRow ? ink.width() : ink.height()) > room + slack)
            return count;
    }
    return nowhere;
}

int CWordProcess::autoWrapIndex(const QString &text, const QTextCharFormat &format, double used,
                                double limit)
{
    return wrapIndex(text, format, used, limit, surelyWideFrom(text, format, limit - used));
}

/// autoWrapIndex() where surelyWideFrom() is known.
int CWordProcess::wrapIndex(const QString &text, const QTextCharFormat &format, double used,
                            double limit, int wideFrom) const
{
    int low = 0;
    int high = text.length() - 1;
    while (low <= high) {
        const int mid = low + (high - low) / 2;
        if (mid >= wideFrom) { // as measuring would tell
            high = mid - 1;
            continue;
        }
        const double width = textWidth(text.left(mid), format) + used;
        if (width > limit) {
            high = mid - 1;
        } else if (width < limit) {
            low = mid + 1;
        } else {
            high = mid;
            break;
        }
    }
    return splitsPair(text, high) ? high - 1 : high;
}
