// SPDX-License-Identifier: MIT
#ifndef FITTINGSEARCH_H
#define FITTINGSEARCH_H

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>

class OutlineSource;

/// How the number of characters that fit on a line is found. Both give the same answer.
enum class FittingSearch {
    Plain, ///< halves the whole rest of the text; its cost grows with the rest
    Fast,  ///< measures near the expected end of the line only
};

/// One stretch of text in one font, put on line after line: measures prefixes of what is left.
/// Lengths are pixels along the line. The text is shared, never copied.
class MeasuredText
{
public:
    struct Fit {
        bool isWhole = false; ///< all of it ends at or before the limit
        int length = -1;      ///< otherwise: how many characters fit, see fit()
    };

    /// \param scale   stretch of the text along the line, any number
    /// \param source  knows widths that were measured before; null for none, else it outlives this
    MeasuredText(const QString &text, const QFont &font, qreal scale, FittingSearch search,
                 OutlineSource *source = nullptr);

    bool isEmpty() const { return length() <= 0; }
    int length() const { return m_text.length() - m_start; } ///< of what is left
    QChar at(int index) const { return m_text.at(m_start + index); }
    QString left(int count) const { return m_text.mid(m_start, count); }

    /// Says the unscaled width of all that is left, so that it need not be measured.
    void presetWidth(qreal width) { m_latest[0] = {length(), width}; }

    /// The first \a count characters are placed.
    void skip(int count);

    /// Scaled length of the first \a count characters.
    qreal width(int count) const;

    /// What fits between \a x and \a limit. The length is found by halving [0, length() - 1] and
    /// stopping at once at a prefix that fits exactly; it is -1 when not even nothing fits.
    /// Not-a-number never fits.
    Fit fit(qreal x, qreal limit) const;

private:
    enum class Verdict { Short, Exact, Wide };

    // Prefixes whose verdict is known without measuring.
    struct Known {
        int lastShort = -1;
        int firstWide = 0; // wide from here up to lastWide
        int lastWide = -1;
        int farWide = 0; // wide from here on
    };

    struct Measure {
        int count = -1;
        qreal width = 0;
    };

    struct Line { // from where to where, for one search
        qreal x;
        qreal limit;
    };

    qreal measured(int count) const;
    Verdict verdict(int count, const Line &line) const;
    int halve(const Known &known, const Line &line) const;
    bool canPredict(const Line &line) const;
    qreal predictedAdvance(QChar character) const;
    int predictedLength(qreal room) const;
    bool isSimple(QChar character) const;
    qreal possibleLoss(QChar character) const;
    bool isBreak(int count) const;
    void findComplexText();
    void searchSimpleText(int expected, const Line &line, Known &known) const;
    int surelyWideLength(int expected, const Line &line) const;

    QString m_text;
    QFont m_font;
    QFontMetricsF m_metrics;
    OutlineSource *m_source;
    qreal m_scale;
    qreal m_letterSpacing;
    qreal m_em = 0; // for the fast road
    bool m_isFast;
    qreal m_possibleLoss = 0; // by how much text behind a prefix can make the whole shorter
    int m_start = 0;
    int m_complex = 0;           // the first character from m_start on that is not simple
    mutable Measure m_latest[2]; // the two prefixes measured last
    mutable QHash<ushort, qreal> m_advances;
};

#endif // FITTINGSEARCH_H
