// SPDX-License-Identifier: MIT
// wordprocess_undo.cpp -- CWordProcess: steps on the host's undo stack.
#include "wordprocess/cwordprocess.h"

// No step is recorded yet.
void CWordProcess::pushUndoRedo(const QString & /*before*/, const QString & /*after*/) {}
