// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nzbreader.h>

#include "nzbparser.h"

#include <QBuffer>
#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Kind = NzbFailure::Kind;

constexpr int pieceSize = 64 * 1024;

NzbFailure systemFailure(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return Kind::Missing;
    case EACCES:
    case EPERM:
        return Kind::NotPermitted;
    case ENXIO: // a socket, or a device that is not there
        return Kind::NotOrdinary;
    default:
        return {Kind::Unreadable, qt_error_string(error)};
    }
}

NzbFailure look(const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        return Kind::Folder;
    if (!S_ISREG(status.st_mode))
        return Kind::NotOrdinary;
    if (status.st_size > NzbReader::mostBytes)
        return Kind::TooLarge;
    return status.st_size == 0 ? Kind::Empty : Kind::None;
}

// Looked at twice: to open a device may do something already, and what was looked at may be another file by
// the time it is open.
NzbFailure open(const QString &path, QFile &file)
{
    if (path.contains(QChar(0)))
        return Kind::Missing;
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (stat(name.constData(), &status) != 0)
        return systemFailure(errno);
    NzbFailure failure = look(status);
    if (!failure.isNull())
        return failure;
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return systemFailure(errno);
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle)) {
        ::close(descriptor);
        return {Kind::Unreadable, file.errorString()};
    }
    return fstat(descriptor, &status) == 0 ? look(status) : systemFailure(errno);
}

NzbFailure parse(QIODevice &device, NzbParser &parser, const std::atomic_bool *stop)
{
    QByteArray piece(pieceSize, Qt::Uninitialized);
    qint64 left = NzbReader::mostBytes; // it may grow
    while (!stop || !*stop) {
        const qint64 size = device.read(piece.data(), piece.size());
        if (size < 0)
            return {Kind::Unreadable, device.errorString()};
        left -= size;
        if (left < 0)
            return Kind::TooLarge;
        if (size == 0 || !parser.add(piece.left(int(size))))
            return parser.finish();
    }
    return Kind::Interrupted;
}

} // namespace

NzbReader::Result NzbReader::readFile(const QString &path, const std::atomic_bool *stop)
{
    QFile file;
    NzbParser parser;
    Result result;
    result.failure = open(path, file);
    if (result.failure.isNull())
        result.failure = parse(file, parser, stop);
    if (result.failure.isNull())
        result.file = parser.takeFile();
    return result;
}

NzbReader::Result NzbReader::readDocument(const QByteArray &document)
{
    QBuffer buffer;
    buffer.setData(document);
    buffer.open(QIODevice::ReadOnly);
    NzbParser parser;
    Result result;
    result.failure = document.isEmpty() ? NzbFailure(Kind::Empty) : parse(buffer, parser, nullptr);
    if (result.failure.isNull())
        result.file = parser.takeFile();
    return result;
}
