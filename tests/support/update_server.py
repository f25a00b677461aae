"""A web server on 127.0.0.1 that serves a folder, well or with one fault.

Usage: update_server.py FOLDER [CERTIFICATE]     the certificate, with its key, makes it an HTTPS server

It prints its port. A line on its standard input sets the fault (see FAULTS); it answers with a line "fault NAME".
Every request target is printed as it came. It also stands in for a proxy: of a whole URL the path is served.
It ends when its standard input does.
"""
import http.server
import os
import ssl
import sys
import threading
import time
import urllib.parse

FIRST = "/download/lshm/中国福利彩票双色球.mdb"
state = {"fault": "none"}
done = threading.Event()


def say(line):
    sys.stdout.buffer.write((line + "\n").encode())
    sys.stdout.buffer.flush()


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *words):
        pass

    def do_GET(self):
        say(self.path)
        self.close_connection = True
        path = urllib.parse.unquote(urllib.parse.urlsplit(self.path).path)
        fault = state["fault"]
        if fault.startswith("first-"):
            fault = fault[len("first-"):] if path == FIRST else "none"
        try:
            FAULTS[fault](self, path)
        except (BrokenPipeError, ConnectionResetError):
            pass  # the client has given up

    def head(self, status, **headers):
        self.send_response(status)
        for name, value in headers.items():
            self.send_header(name.replace("_", "-"), str(value))
        self.send_header("Connection", "close")
        self.end_headers()

    def body_of(self, path):
        file = os.path.join(folder, path.lstrip("/"))
        if not os.path.isfile(file):
            return None
        with open(file, "rb") as opened:
            return opened.read()

    def none(self, path):
        body = self.body_of(path)
        if body is None:
            return self.missing(path)
        self.head(200, Content_Length=len(body))
        self.wfile.write(body)

    def missing(self, path):
        self.head(404, Content_Length=9)
        self.wfile.write(b"not found")

    def error(self, path):
        body = self.body_of(path)
        self.head(500, Content_Length=len(body))
        self.wfile.write(body)

    def empty(self, path):
        self.head(200, Content_Length=0)

    def garbage(self, path):
        body = bytes(place * place * 7 % 251 for place in range(50000))
        self.head(200, Content_Length=len(body))
        self.wfile.write(body)

    def page(self, path):
        body = "<html><body>请先登录</body></html>".encode()
        self.head(200, Content_Length=len(body))
        self.wfile.write(body)

    def cut(self, path):
        body = self.body_of(path)
        self.head(200, Content_Length=len(body))
        self.wfile.write(body[: len(body) // 2])

    def cut_chunk(self, path):
        body = self.body_of(path)
        self.head(200, Transfer_Encoding="chunked")
        self.wfile.write(b"%x\r\n" % len(body) + body[: len(body) // 2])

    def cut_quietly(self, path):
        """No length: nothing tells that a half is missing."""
        body = self.body_of(path)
        self.head(200)
        self.wfile.write(body[: len(body) // 2])

    def half(self, path):
        """A file that was cut before it came to the server: only what is in it can tell."""
        body = self.body_of(path)
        body = body[: len(body) // 2]
        self.head(200, Content_Length=len(body))
        self.wfile.write(body)

    def chunked(self, path):
        body = self.body_of(path)
        self.head(200, Transfer_Encoding="chunked")
        self.wfile.write(b"%x\r\n" % len(body) + body + b"\r\n0\r\n\r\n")

    def unannounced(self, path):
        self.head(200)
        self.wfile.write(self.body_of(path))

    def silent(self, path):
        done.wait()

    def slow(self, path):
        body = self.body_of(path)
        self.head(200, Content_Length=len(body))
        self.wfile.write(body[:1000])
        self.wfile.flush()
        done.wait()

    def drip(self, path):
        """A pause now and then, each shorter than a client waits."""
        body = self.body_of(path)
        self.head(200, Content_Length=len(body))
        for part in range(8):
            self.wfile.write(body[len(body) * part // 8: len(body) * (part + 1) // 8])
            self.wfile.flush()
            time.sleep(0.2)

    def trickle(self, path):
        """Bytes come all the time, but hardly any."""
        body = self.body_of(path)
        self.head(200, Content_Length=len(body))
        while not done.is_set():
            self.wfile.write(body[:1])
            time.sleep(0.02)

    def large_headers(self, path):
        """Sound, apart from a hundred kilobytes of fields before the body."""
        body = self.body_of(path)
        self.head(200, Content_Length=len(body), **{"X_%d" % field: "x" * 1000 for field in range(100)})
        self.wfile.write(body)

    def endless_headers(self, path):
        self.wfile.write(b"HTTP/1.1 200 OK\r\n")
        while not done.is_set():
            self.wfile.write(b"X-Filler: " + b"x" * 4000 + b"\r\n")

    def endless_header(self, path):
        self.wfile.write(b"HTTP/1.1 200 OK\r\nX-Filler: ")
        while not done.is_set():
            self.wfile.write(b"x" * 65536)

    def endless_status(self, path):
        while not done.is_set():
            self.wfile.write(b"x" * 65536)

    def trickling_headers(self, path):
        self.wfile.write(b"HTTP/1.1 200 OK\r\n")
        while not done.is_set():
            self.wfile.write(b"X: y\r\n")
            time.sleep(0.02)

    def endless(self, path):
        self.head(200)
        while not done.is_set():
            self.wfile.write(bytes(65536))

    def long(self, path):
        self.head(200, Content_Length=10 ** 12)
        done.wait()

    def packed(self, path):
        body = self.body_of(path)
        self.head(200, Content_Length=len(body), Content_Encoding="x-own")
        self.wfile.write(body)

    def moved(self, path):
        if path.startswith("/moved"):
            return self.none(path[len("/moved"):])
        self.head(302, Location="/moved" + urllib.parse.quote(path), Content_Length=0)

    def moved_to_ftp(self, path):
        self.head(302, Location="ftp://127.0.0.1:%d/x.mdb" % port, Content_Length=0)

    def moved_to_file(self, path):
        self.head(302, Location="file://" + os.path.join(folder, urllib.parse.quote(path.lstrip("/"))),
                  Content_Length=0)

    def moved_in_a_circle(self, path):
        self.head(302, Location=urllib.parse.quote(path), Content_Length=0)

    def moved_to_http(self, path):
        self.head(302, Location="http://127.0.0.1:%s%s" % (other_port, urllib.parse.quote(path)), Content_Length=0)


FAULTS = {name.replace("_", "-"): method for name, method in vars(Handler).items()
          if callable(method) and not name.startswith(("_", "do_", "log_")) and name not in ("head", "body_of")}

folder = sys.argv[1]
server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
server.daemon_threads = True
server.block_on_close = False
port = server.server_address[1]
other_port = ""
if len(sys.argv) > 2:
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(sys.argv[2])
    server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
threading.Thread(target=server.serve_forever, daemon=True).start()
say(str(port))
for line in sys.stdin:
    words = line.split()
    if words[0] not in FAULTS and words[0].removeprefix("first-") not in FAULTS:
        sys.exit("no such fault: " + words[0])
    state["fault"] = words[0]
    other_port = words[1] if len(words) > 1 else ""
    say("fault " + words[0])
done.set()
