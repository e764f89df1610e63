// SPDX-License-Identifier: MIT
// viewmenu.h -- the commands that change how a page is shown.
#ifndef PAGEHOST_VIEWMENU_H
#define PAGEHOST_VIEWMENU_H

class MainWindow;
class QMenu;

/// Fills the View menu of \a window with zoom, fits and full screen. They reach the program in an edit
/// too.
void fillViewMenu(QMenu *menu, MainWindow *window);

#endif
