// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "schema.h"

#include <libxml/relaxng.h>
#include <stdexcept>

namespace corvia {

namespace {

// Keeps the first message the library reports.
void keepFirst(void *to, xmlErrorPtr error)
{
    auto *message = static_cast<std::string *>(to);
    if (message->empty() && error->message != nullptr) {
        *message = error->message;
        *message = message->substr(0, message->find('\n'));
    }
}

} // namespace

struct Schema::Compiled {
    ~Compiled() { xmlRelaxNGFree(schema); }
    xmlRelaxNG *schema = nullptr;
};

Schema::Schema(const std::string &text)
    : compiled_(std::make_unique<Compiled>())
{
    xmlInitParser();
    std::string problem;
    xmlRelaxNGParserCtxt *parser = xmlRelaxNGNewMemParserCtxt(text.data(), static_cast<int>(text.size()));
    xmlRelaxNGSetParserStructuredErrors(parser, keepFirst, &problem);
    compiled_->schema = xmlRelaxNGParse(parser);
    xmlRelaxNGFreeParserCtxt(parser);
    if (compiled_->schema == nullptr) {
        throw std::invalid_argument("The schema cannot be read: " + problem);
    }
}

Schema::~Schema() = default;

std::string Schema::firstProblem(const XmlDocument &document) const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    std::string problem;
    xmlRelaxNGValidCtxt *validation = xmlRelaxNGNewValidCtxt(compiled_->schema);
    xmlRelaxNGSetValidStructuredErrors(validation, keepFirst, &problem);
    const int result = xmlRelaxNGValidateDoc(validation, document.get());
    xmlRelaxNGFreeValidCtxt(validation);
    if (result != 0 && problem.empty()) {
        problem = "The document is not valid";
    }
    return result == 0 ? std::string() : problem;
}

} // namespace corvia
