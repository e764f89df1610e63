// SPDX-License-Identifier: MIT
// benchpages.h -- page files that the benchmarks of the programs open.
#ifndef BENCHPAGES_H
#define BENCHPAGES_H

#include <QByteArray>
#include <QString>

class PluginLoader;

/// What all these pages are painted on: nothing else on a screen has this colour.
constexpr const char *benchPageColor = "#2f9e6e";

/// A page of short lines of text, written by hand.
QByteArray plainPage(int objectCount);
/// A page of \a objectCount objects in 25 columns of 120 by 45 pixels, written by hand: half of them lines, a
/// quarter boxes of 60 characters, a tenth art texts; the lines left over are for writeMixedPage() to warp.
QByteArray mixedPage(int objectCount);
/// A page of one box with \a characters of Latin or Han text, each line of 600 pixels.
QByteArray boxPage(int characters, bool han);

/// Writes \a content to \a fileName. False when that fails.
bool writeBytes(const QString &fileName, const QByteArray &content);
/// Writes mixedPage() with its warps to \a fileName, .json or .vxpage: all objects as records with the
/// picture that a save gives them. False with \a error. Needs a framework; \a loader is loaded.
bool writeMixedPage(const PluginLoader &loader, int objectCount, const QString &fileName,
                    QString &error);

#endif
