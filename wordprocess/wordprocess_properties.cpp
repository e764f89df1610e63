// SPDX-License-Identifier: MIT
// wordprocess_properties.cpp -- CWordProcess: numbered properties, and what the host is told.
// A property changes what its name says; notifications change nothing.
#include "wordprocess/cwordprocess.h"

#include "host/framework/iappframework.h"
#include "layout/textproperties.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/htmldocument.h"

#include <QDataStream>

namespace {
namespace Number { // of SetSpecialProperty(): part of the contract
constexpr int BeginEdit = 101;
constexpr int EndEdit = 102;
constexpr int FirstText = 106;
constexpr int FontImagePosition = 2604;
} // namespace Number

namespace Tool {
constexpr int Text = 300;
constexpr int HoverWhileEditing = 91;
} // namespace Tool

IObjectEventSink *eventSink()
{
    IAppFramework *framework = GetFramework();
    return framework ? framework->getEventSink() : nullptr;
}

QString defaultInputWord()
{
    const QString fallback = QStringLiteral("Please input text");
    IAppFramework *framework = GetFramework();
    return framework
               ? framework->getLocalString(QStringLiteral("IDS_TEXT_DEFAULT_INPUTWORD"), fallback)
               : fallback;
}

QString plainTextOfHtml(const QString &html)
{
    HtmlDocument reader;
    reader.setHtml(html);
    return reader.toPlainText();
}

bool reportsHover(bool editing)
{
    IAppFramework *framework = GetFramework();
    const int tool = framework ? framework->getCurrentTool() : 0;
    return tool == Tool::Text || (tool == Tool::HoverWhileEditing && editing);
}
} // namespace

bool CWordProcess::SetSpecialProperty(int number, QDataStream &stream, bool flag)
{
    switch (number) {
    case Number::BeginEdit:
        if (!m_created || isLocked())
            return true;
        if (fontsAreComplete())
            beginEdit();
        else
            notifyTextOperation(TextOperationMissingFonts, {});
        return true;
    case Number::EndEdit:
        endEdit();
        return true;
    case Number::FirstText:
        setFirstText(stream);
        return true;
    case Number::FontImagePosition:
        if (m_showFontImage)
            m_fontImagePos = getPos();
        return true;
    default:
        return CVXRootObject::SetSpecialProperty(number, stream, flag);
    }
}

void CWordProcess::setFirstText(QDataStream &stream)
{
    QString text;
    stream >> text;
    if (Qt::mightBeRichText(text))
        text = plainTextOfHtml(text);

    QTextBlockFormat blockFormat;
    blockFormat.setProperty(QTextFormat::BlockLeftMargin, 0.0);
    QTextCharFormat charFormat;
    charFormat.setForeground(QBrush(Qt::black, Qt::SolidPattern));
    charFormat.setFont(hostDefaultFont());
    charFormat.setProperty(TextProperty::RowSpacing, 0);
    m_cursor->setBlockFormat(blockFormat);
    m_cursor->setCharFormat(charFormat);
    m_cursor->insertText(text);

    m_defaultWord = defaultInputWord();
    setTextInteractionFlags(Qt::NoTextInteraction);
    m_created = true;
    updateBoundingRectImpl(true);
    QDataStream nothing;
    SetSpecialProperty(Number::FontImagePosition, nothing, false);
    notifyTextOperation(TextOperationAttributes, {});
    enableAllHandles();
}

void CWordProcess::notifyTextOperation(EnumTextOperation operation, const AttributeMap &map)
{
    IObjectEventSink *sink = eventSink();
    if (!sink) // without a listener nothing is built
        return;
    AttributeMap values = textOperationMap(operation, map);
    if (values.isEmpty())
        return;
    values[QStringLiteral("sub_operator")] = static_cast<int>(operation);
    sink->notifyObjectEvent(this, QStringLiteral("text_operation"), values);
}

/// What is sent beside the kind of the operation; empty when nothing is to be sent.
AttributeMap CWordProcess::textOperationMap(EnumTextOperation operation, const AttributeMap &map)
{
    const AttributeMap horizontal{
        {QStringLiteral("horizontal"), m_textOrientation == Qt::Horizontal}};
    AttributeMap values;
    switch (operation) {
    case TextOperationAttributes:
        getAllAttributes(values);
        return values;
    case TextOperationMissingFonts:
        if (!m_missingFonts.isEmpty())
            values[QStringLiteral("familys")] = m_missingFonts;
        return values;
    case TextOperationAboutToEdit:
        return horizontal;
    case TextOperationEditState:
        return {{QStringLiteral("editflag"), m_editing}};
    case TextOperationPointerEntered:
    case TextOperationPointerLeft:
        return reportsHover(m_editing) ? horizontal : values;
    case TextOperationAttributeCommand:
        return map;
    case TextOperationPointerShape:
        values = map;
        if (!values.isEmpty())
            values[QStringLiteral("horizontal")] = m_textOrientation == Qt::Horizontal;
        return values;
    }
    return values;
}
