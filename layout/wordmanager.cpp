// SPDX-License-Identifier: MIT
#include "layout/wordmanager.h"

#include "layout/multitextobject.h"
#include "layout/singletextobject.h"

namespace {

CTextObjectBase *createTextObject(CWordProcess *object, bool wordWrap)
{
    if (wordWrap)
        return new CMultiTextOjbect(object);
    return new CSingleTextObject(object);
}

} // namespace

CWordManager::CWordManager(CWordProcess *object, bool wordWrap)
    : m_object(object)
    , m_textObject(createTextObject(object, wordWrap))
    , m_wordWrap(wordWrap)
{
}

CWordManager::~CWordManager()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    delete m_textObject;
    m_textObject = nullptr;
}

void CWordManager::setWordWrap(bool wordWrap)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (wordWrap == m_wordWrap)
        return;
    CTextObjectBase *created = createTextObject(m_object, wordWrap);
    delete m_textObject;
    m_textObject = created;
    m_wordWrap = wordWrap;
}

void CWordManager::layout()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_textObject->layout();
}

void CWordManager::textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_textObject->textPaths(paths, brushes);
}

QLineF CWordManager::cursorLine(int pos, bool forward)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_textObject->cursorLine(pos, forward);
}

void CWordManager::updatePosition(qreal dx, qreal dy, qreal width, qreal height)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_textObject->updatePosition(dx, dy, width, height);
}

TextLayout CWordManager::textLayout()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_textObject->textLayout();
}

QRectF CWordManager::textOriRect()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_textObject->oriRect();
}

QRectF CWordManager::textPathRect()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_textObject->coveredRect();
}
