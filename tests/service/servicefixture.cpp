// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "servicefixture.h"

namespace {

const char *const accounts = R"(
  <account user="ada" password="secret word">
    <links><link key="home" url="https://www.corvia.example/?a=1&amp;b=2"/></links>
    <bookmarks>
      <folder name="Dots &amp; &lt;dashes&gt;"><newsgroup name="misc.dots"/><newsgroup name="comp.gone"/></folder>
      <folder name="Empty"/>
    </bookmarks>
    <status supported="true" next-update-millis="300000">
      <plan name="Pinegate &quot;Small&quot; &lt;1&gt;"/>
      <nntp max-connections="8" billing-bytes="5000000000" mtd-bytes="12" usage-updated-minutes-ago="5"/>
    </status>
    <messages>
      <message uid="fixed" date="0" read="true" deletable="false">Fixed &amp; &lt;old&gt;</message>
      <message uid="aged" hours-ago="2" url="https://www.corvia.example/?a=1&amp;b=2">Aged</message>
      <message uid="plain">Plain</message>
    </messages>
  </account>
  <account user="bob" password="secret word">
    <servers><server host="news.corvia.example" port="119" ssl="false"/></servers>
    <software-update version="9.9" url="https://www.corvia.example/get">Faster &amp; nicer.</software-update>
    <status supported="false"/>
  </account>
  <account user="eve" password="secret word"><login-refused>Please pay first.</login-refused></account>
  <account user="kim" password="secret word" session-seconds="0"/>
)";

const char *const groups = R"(
  <groups>
    <group name="misc.dots" description="Lines with dots" posting="y" first="7">
      <article id="one@x.example" from="Ada &lt;ada@x.example&gt;" subject="Dots"
               date="Mon, 02 Mar 2026 10:00:00 +0000">
        .one
        ..two
        .
        end
      </article>
      <article id="two@x.example" number="9" from="Bob &lt;bob@x.example&gt;" subject="Re: Dots"
               answers="one@x.example" date="Mon, 02 Mar 2026 11:00:00 +0000">Short</article>
    </group>
    <group name="comp.empty" description="Nothing" posting="m" first="100"/>
    <group name="comp.also" description="Nothing either"/>
  </groups>
)";

} // namespace

ServiceFixture::ServiceFixture(const corvia::Options &options, const std::string &extra)
    : service_(scenario(extra), options)
    , plain_(options.plainHttp)
{
    service_.start(&problem_);
}

HttpsClient ServiceFixture::client() const
{
    return {service_.accountPort(), plain_ ? std::string() : service_.authorityFile()};
}

HttpsReply ServiceFixture::post(const std::string &request) const
{
    return client().post(request);
}

std::string ServiceFixture::logIn(const std::string &user) const
{
    return valueIn(post(loginRequest(user)).body, "session");
}

void ServiceFixture::setFault(corvia::Fault::Kind kind, int number, const std::string &text,
                              const std::string &request)
{
    corvia::Fault fault;
    fault.kind = kind;
    fault.number = number;
    fault.text = text;
    fault.request = request;
    service_.setFault(fault);
}

std::string ServiceFixture::scenario(const std::string &extra)
{
    return std::string(R"(<scenario version="1" auto-search-interval="600">)") + accounts + groups + extra +
           "</scenario>";
}

std::string ServiceFixture::loginRequest(const std::string &user, const std::string &password)
{
    return "<request version=\"1\"><login><user-name>" + user + "</user-name><password>" + password +
           R"(</password><client name="Halvora" version="0.1.0" language="en"/></login></request>)";
}

std::string ServiceFixture::statusRequest(const std::string &session)
{
    return R"(<request version="1" session=")" + session + "\"><status/></request>";
}

std::string ServiceFixture::bookmarksRequest(const std::string &session)
{
    return R"(<request version="1" session=")" + session + "\"><bookmarks/></request>";
}

std::string ServiceFixture::messageRequest(const std::string &session, const std::vector<std::string> &read,
                                           const std::vector<std::string> &deleted)
{
    const auto list = [](const std::string &name, const std::vector<std::string> &uids) {
        std::string text;
        for (const std::string &uid : uids) {
            text += "<message uid=\"" + uid + "\"/>";
        }
        return text.empty() ? text : "<" + name + ">" + text + "</" + name + ">";
    };
    return R"(<request version="1" session=")" + session + "\"><message>" + list("read", read) +
           list("deleted", deleted) + "</message></request>";
}

std::string ServiceFixture::valueIn(const std::string &reply, const std::string &name)
{
    const std::string before = " " + name + "=\"";
    const std::size_t found = reply.find(before);
    if (found == std::string::npos) {
        return {};
    }
    const std::size_t start = found + before.size();
    return reply.substr(start, reply.find('"', start) - start);
}
