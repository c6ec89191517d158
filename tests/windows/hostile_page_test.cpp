#include <gtest/gtest.h>

#include <QTcpServer>
#include <QUdpSocket>
#include <string>

#include "support/file_content.h"
#include "windows/page_printer.h"
#include "windows/pages.h"
#include "windows/report_page.h"

namespace orvex::windows {
namespace {

/// Tries every way out that a page has; SERVER and CALLS stand for ports of the test's own.
constexpr std::string_view kTries = R"(
<link rel="preconnect" href="http://127.0.0.1:SERVER/"><link rel="stylesheet" href="http://127.0.0.1:SERVER/style.css">
<img src="http://127.0.0.1:SERVER/image"><iframe src="http://127.0.0.1:SERVER/frame"></iframe>
<iframe src="file:///etc/passwd"></iframe>
<a id="link" href="http://127.0.0.1:SERVER/link" ping="http://127.0.0.1:SERVER/ping">out</a>
<form id="form" method="post" action="http://127.0.0.1:SERVER/form"></form><ul id="got"></ul>
<script>
const base = 'http://127.0.0.1:SERVER/';
const got = [];
const tell = (what) => { got.push(what); document.getElementById('got').textContent = got.join(' '); };
for (const file of ['file:///etc/passwd', '../SECRET', '%2e%2e/SECRET', 'neighbour.xml', base + 'request']) {
  const request = new XMLHttpRequest();
  try { request.open('GET', file, false); request.send(); tell(request.responseText); } catch { }
}
fetch(base + 'fetch').then(() => tell('fetched'), () => {});
fetch('file:///etc/passwd').then(() => tell('fetched a file'), () => {});
navigator.sendBeacon(base + 'beacon');
new WebSocket('ws://127.0.0.1:SERVER/socket').onopen = () => tell('socket');
new EventSource(base + 'events').onopen = () => tell('events');
const call = new RTCPeerConnection({iceServers: [{urls: 'stun:127.0.0.1:CALLS'},
    {urls: 'turn:127.0.0.1:SERVER?transport=tcp', username: 'a', credential: 'b'}]});
call.createDataChannel('data');
call.createOffer().then((offer) => call.setLocalDescription(offer));
if (window.open(base + 'window')) tell('window');
alert('stop'); if (confirm('go on?')) tell('confirmed');
document.getElementById('link').click();
setTimeout(() => { location = base + 'place'; }, 100);
setTimeout(() => document.getElementById('form').submit(), 200);
setTimeout(() => { document.documentElement.dataset.state = 'ready'; }, 1200);
</script>)";

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
  return text;
}

class HostilePage : public test::PageTest {};

TEST_F(HostilePage, ReachesNeitherTheNetworkNorOtherFilesButItsNeighbour) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  QUdpSocket datagrams;
  ASSERT_TRUE(datagrams.bind(QHostAddress::LocalHost));
  test::WriteFile(folder_.Path() / "secret.txt", "secret");
  std::filesystem::create_directory(folder_.Path() / "pages");
  test::WriteFile(folder_.Path() / "pages" / "neighbour.xml", "neighbour");
  auto body = Replaced(std::string(kTries), "SERVER", std::to_string(server.serverPort()));
  body = Replaced(Replaced(body, "CALLS", std::to_string(datagrams.localPort())), "SECRET", "secret.txt");
  const auto page_file = WritePage("pages/hostile.htm", "loading", "Hostile", body);

  ReportPage page(page_file);
  bool ready = false;
  QString got;
  QObject::connect(&page, &ReportPage::Ready, [&] {
    page.Page().runJavaScript(QStringLiteral("got.join(' ')"), [&](const QVariant& answer) {
      got = answer.toString();
      ready = true;
    });
  });
  page.Open();
  ASSERT_TRUE(WaitFor([&] { return ready; }));
  EXPECT_EQ(got.toStdString(), "neighbour");
  EXPECT_FALSE(server.hasPendingConnections());
  EXPECT_FALSE(datagrams.hasPendingDatagrams());
  EXPECT_EQ(page.Page().url().toLocalFile().toStdString(), page_file.string());
}

}  // namespace
}  // namespace orvex::windows
