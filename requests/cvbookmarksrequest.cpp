// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvbookmarksrequest.h"

#include "bookmarks/bookmarkitem.h"

#include <QDomElement>
#include <QThread>
#include <QXmlStreamWriter>

namespace {

constexpr unsigned long nap = 5; // milliseconds

BookmarkItem *readFolder(const QDomElement &element, const QString &name)
{
    auto *folder = new BookmarkItem(BookmarkKind::Folder, nullptr);
    folder->setName(name);
    QList<BookmarkItem *> bookmarks;
    const QString tag = QStringLiteral("newsgroup");
    for (auto e = element.firstChildElement(tag); !e.isNull(); e = e.nextSiblingElement(tag)) {
        const QString newsgroup = e.text();
        if (newsgroup.isEmpty())
            continue;
        bookmarks.append(new BookmarkItem(BookmarkKind::Bookmark, folder));
        bookmarks.constLast()->setName(newsgroup);
    }
    folder->appendNewChildren(bookmarks);
    return folder;
}

} // namespace

CVBookmarksRequest::CVBookmarksRequest(Connector *connector)
    : HRequest(connector)
{
}

CVBookmarksRequest::~CVBookmarksRequest()
{
    clear();
}

QList<BookmarkItem *> CVBookmarksRequest::folders() const
{
    return m_folders;
}

void CVBookmarksRequest::clear()
{
    qDeleteAll(m_folders);
    m_folders.clear();
}

void CVBookmarksRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    writer.writeStartElement(QStringLiteral("bookmarks"));
    writer.writeEndElement();
}

void CVBookmarksRequest::buildResponseInternal(const QDomElement &reply)
{
    const QString tag = QStringLiteral("folder");
    QDomElement element = reply.firstChildElement(tag);
    while (!element.isNull()) {
        if (QThread::currentThread()->isInterruptionRequested())
            return clear();
        // An empty element has an empty text, not a null one; neither is a name.
        const QString name = element.firstChildElement(QStringLiteral("name")).text();
        if (name.isEmpty()) {
            QThread::msleep(nap); // without a rest this would take a whole processor
            continue;
        }
        m_folders.append(readFolder(element, name));
        element = element.nextSiblingElement(tag);
    }
}
