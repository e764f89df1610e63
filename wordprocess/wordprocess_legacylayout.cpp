// SPDX-License-Identifier: MIT
// wordprocess_legacylayout.cpp -- CWordProcess: the older engine, for text from old records.
// Old text is kept and saved as it was read; it is not laid out and not painted yet.
#include "wordprocess/cwordprocess.h"

void CWordProcess::updateBoundingRectForOldVersion(bool /*argument*/) {}
void CWordProcess::horizontalPaint(QPainter * /*painter*/) {}
void CWordProcess::verticalPaint(QPainter * /*painter*/) {}
int CWordProcess::legacyPositionUnder(const QPointF & /*point*/)
{
    return -1;
}
void CWordProcess::selectLegacyLine(int /*position*/) {}
