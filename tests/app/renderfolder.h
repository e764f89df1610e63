// SPDX-License-Identifier: MIT
// renderfolder.h -- runs the built program in a folder of its own, where the font of squares is the
// only one installed.
#ifndef RENDERFOLDER_H
#define RENDERFOLDER_H

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>
#include <QtTest>

constexpr int runTimeout = 100000; ///< milliseconds; far above what the slowest run takes

struct Run {
    int exitCode = -1;
    bool ended = false; ///< by itself: neither killed nor crashed
    QString out;
    QString err;
    QByteArray bytes; ///< out as it came
};

struct Ink {
    int pixels = 0;
    QRect bounds;
};

/// The dark pixels of \a image.
inline Ink inkOf(const QImage &image)
{
    Ink ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                ++ink.pixels;
                ink.bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

class RenderFolder
{
public:
    RenderFolder()
    {
        QFile config(m_fonts.filePath(QStringLiteral("fonts.conf")));
        if (!m_folder.isValid() || !config.open(QIODevice::WriteOnly))
            qFatal("cannot make a folder");
        config.write("<?xml version=\"1.0\"?><fontconfig><dir>" VX_SOURCE_DIR
                     "/tests/support</dir><cachedir>"
                     + QFile::encodeName(m_fonts.path()) + "</cachedir></fontconfig>\n");
    }

    /// What the next runs find in the environment.
    void setVariable(const char *name, const char *value)
    {
        m_variables.insert(QLatin1String(name), QLatin1String(value));
    }

    /// Starts the program, or another one with the same environment.
    void start(QProcess &process, const QStringList &arguments,
               const QString &program = QStringLiteral(PAGERENDER_PROGRAM)) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("FONTCONFIG_FILE"),
                           m_fonts.filePath(QStringLiteral("fonts.conf")));
        for (const char *name :
             {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "SOURCE_DATE_EPOCH"})
            environment.remove(QLatin1String(name));
        for (auto it = m_variables.constBegin(); it != m_variables.constEnd(); ++it)
            environment.insert(it.key(), it.value());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        process.start(program, arguments);
    }

    /// \param input what the program finds on its standard input
    Run run(const QStringList &arguments, const QByteArray &input = QByteArray()) const
    {
        QProcess process;
        start(process, arguments);
        process.write(input);
        process.closeWriteChannel();
        Run result;
        result.ended = process.waitForFinished(runTimeout)
                       && process.exitStatus() == QProcess::NormalExit;
        result.exitCode = process.exitCode();
        result.bytes = process.readAllStandardOutput();
        result.out = QString::fromUtf8(result.bytes);
        result.err = QString::fromUtf8(process.readAllStandardError());
        return result;
    }
    Run run(const char *arguments, const QByteArray &input = QByteArray()) const
    {
        return run(QString::fromUtf8(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts), input);
    }

    QString folder() const { return m_folder.path(); }
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    bool has(const char *name) const { return QFile::exists(path(name)); }

    QString write(const char *name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
        return file.fileName();
    }

    QByteArray read(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QMap<QString, QString> m_variables;
    QTemporaryDir m_fonts;
    QTemporaryDir m_folder;
};

#endif
