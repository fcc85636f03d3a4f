"""A mail server that says what a test wants, and keeps what it is sent."""

import socket
import threading


class ScriptedServer:
    """Answers each line of the dialogue with the next of `replies`; None closes the connection. With `silent` it says
    nothing at all."""

    def __init__(self, replies=(), silent=False):
        self.replies = list(replies)
        self.silent = silent
        self.connections = 0
        self.received = b""
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self._serve, daemon=True).start()

    def _serve(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            self.connections += 1
            threading.Thread(target=self._talk, args=(connection,), daemon=True).start()

    def _talk(self, connection):
        with connection:
            try:
                self._answer(connection)
            except OSError:
                pass

    def _answer(self, connection):
        replies = iter(self.replies)
        if not self.silent and not self._say(connection, next(replies, None)):
            return
        rest = b""
        while data := connection.recv(65536):
            self.received += data
            rest += data
            while not self.silent and b"\r\n" in rest:
                _, rest = rest.split(b"\r\n", 1)
                if not self._say(connection, next(replies, b"")):
                    return

    @staticmethod
    def _say(connection, reply):
        if reply is None:
            return False
        connection.sendall(reply)
        return True

    def close(self):
        self.listener.close()
