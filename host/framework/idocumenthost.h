// SPDX-License-Identifier: MIT
// idocumenthost.h -- the document that pages belong to: resolution, undo groups, stored images.
#ifndef IDOCUMENTHOST_H
#define IDOCUMENTHOST_H

#include <QString>

class QDataStream;
class QGraphicsView;
class QImage;
class QImageEx;
class QJsonObject;

class IDocumentHost
{
public:
    virtual ~IDocumentHost() = default;
    /// Dots per inch of the document.
    virtual int getDpi() = 0;
    /// Opens a group of undoable steps under an action key such as "IDS_ITEM_ADD_ITEM".
    virtual void beginUndoGroup(const QString &actionKey) = 0;
    /// Closes the group that was opened last; without an open group nothing happens.
    virtual void endUndoGroup() = 0;
    /// Stores \a image with the document. \a name and \a second receive its name and that of its
    /// second form (empty when there is none). A null image stores nothing and empties both.
    virtual void storeImage(const QImage &image, QString &name, QString &second, int kind,
                            int quality, bool shareEqual) = 0;
    /// The image stored under \a name; null for an unknown name. The document keeps it.
    virtual QImageEx *imageByName(const QString &name) = 0;
    /// Reads an older image record. On failure false, and \a image stays null.
    virtual bool readImageFromStream(QDataStream &stream, QImage *image, int kind,
                                     QString &name) = 0;
    /// Reads the same from the value under \a key of a JSON record.
    virtual bool readImageFromJson(QJsonObject &json, QImage *image, const QString &key, int kind,
                                   QString &name) = 0;
    /// The view that shows the document, or null.
    virtual QGraphicsView *getView() = 0;
};

#endif
