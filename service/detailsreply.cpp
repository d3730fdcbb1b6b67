// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "detailsreply.h"

#include "xmlwriter.h"

#include <chrono>

namespace corvia {

namespace {

std::int64_t secondsHoursAgo(std::int64_t hours)
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count() - hours * 3600;
}

void writeFile(XmlWriter &writer, const PostedFile &file)
{
    writer.open("file").attribute("subject", file.subject).attribute("poster", file.poster);
    if (file.hoursAgo) {
        writer.attribute("date", secondsHoursAgo(*file.hoursAgo));
    }
    writer.open("groups");
    for (const std::string &newsgroup : file.newsgroups) {
        writer.open("group").text(newsgroup).close();
    }
    writer.close().open("segments");
    std::int64_t number = 0;
    for (const FileSegment &segment : file.segments) {
        writer.open("segment").attribute("bytes", segment.bytes).attribute("number", ++number);
        writer.text(segment.id).close();
    }
    writer.close().close();
}

} // namespace

std::string detailsReply(const FileGroup &group)
{
    XmlWriter writer;
    writer.open("reply").attribute("version", 1).open("details").open("nzb");
    if (!group.title.empty()) {
        writer.open("head").open("meta").attribute("type", "title").text(group.title).close().close();
    }
    for (const PostedFile &file : group.files) {
        writeFile(writer, file);
    }
    return writer.finish();
}

} // namespace corvia
