// SPDX-License-Identifier: MIT
// documenthost.h -- a document to start from: resolution, undo groups and an image store in memory.
#ifndef DOCUMENTHOST_H
#define DOCUMENTHOST_H

#include "host/framework/cundoredo.h"
#include "host/framework/framework_global.h"
#include "host/framework/idocumenthost.h"

#include <QByteArray>
#include <QPointer>
#include <QStringList>

#include <map>
#include <memory>

/// The pages of a document share one of these; a host derives from it to save the images with its
/// file.
class FRAMEWORK_EXPORT DocumentHost : public IDocumentHost
{
public:
    /// \param stack where undo groups are opened; null means the common stack. Not owned.
    explicit DocumentHost(int dpi = 96, CUndoRedo *stack = nullptr);
    ~DocumentHost() override;
    DocumentHost(const DocumentHost &) = delete;
    DocumentHost &operator=(const DocumentHost &) = delete;

    int getDpi() override { return m_dpi; }
    /// Not above 0: refused.
    void setDpi(int dpi);
    CUndoRedo *undoStack() const;
    /// Takes another stack, for a document that owns its own. Not between the two ends of a group.
    void setUndoStack(CUndoRedo *stack) { m_stack = stack; }

    /// Undo groups are macros of the stack: all steps until the matching end are undone together. A
    /// group in which nothing was pushed leaves no step. Groups nest.
    void beginUndoGroup(const QString &actionKey) override;
    void endUndoGroup() override;

    /// Keeps a PNG of \a image. Its name comes from its content: with \a shareEqual, equal images
    /// share one entry, without it each call makes an entry of its own. \a second is always empty.
    void storeImage(const QImage &image, QString &name, QString &second, int kind, int quality,
                    bool shareEqual) override;
    QImageEx *imageByName(const QString &name) override;
    /// An older image record: its name, then the bytes of a PNG. The image is stored with the
    /// document too.
    bool readImageFromStream(QDataStream &stream, QImage *image, int kind, QString &name) override;
    /// The value under \a key: the base64 form of a PNG, or an object with "name" and "data".
    bool readImageFromJson(QJsonObject &json, QImage *image, const QString &key, int kind,
                           QString &name) override;
    QGraphicsView *getView() override { return nullptr; }

    // For the document's own file
    QStringList imageNames() const;
    /// The PNG of an image; empty for an unknown name.
    QByteArray imageData(const QString &name) const;
    /// Puts back what imageData() gave. False for bytes that are no PNG of an acceptable size, and
    /// for an empty name.
    bool restoreImage(const QString &name, const QByteArray &png);
    void clearImages();

private:
    struct StoredImage;

    int m_dpi;
    QPointer<CUndoRedo> m_stack;
    int m_openGroups = 0;
    std::map<QString, std::unique_ptr<StoredImage>> m_images;
};

#endif
