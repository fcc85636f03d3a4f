"""A mail server that takes every message, as many connections as come, and keeps them."""

import socketserver
import threading


class _Dialogue(socketserver.StreamRequestHandler):
    def handle(self):
        try:
            self._talk()
        except OSError:
            pass

    def _talk(self):
        self._say("220 ready")
        while line := self.rfile.readline():
            word = line[:4].upper()
            if word == b"DATA":
                self._say("354 go on")
                self.server.messages.append(b"".join(iter(self.rfile.readline, b".\r\n")))
            self._say("221 bye" if word == b"QUIT" else "250 taken")

    def _say(self, text):
        self.wfile.write(text.encode() + b"\r\n")


class TakingServer(socketserver.ThreadingTCPServer):
    allow_reuse_address = True
    daemon_threads = True

    def __init__(self):
        super().__init__(("127.0.0.1", 0), _Dialogue)
        self.port = self.server_address[1]
        self.messages = []
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def close(self):
        self.shutdown()
        self.server_close()
