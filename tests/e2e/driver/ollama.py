"""A stand-in for an Ollama server, on the loopback address and a port of its own."""
import contextlib
import json
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

RATING = {
    "rating": 8,
    "maxRating": 10,
    "summary": "Asks for a review by a careful colleague, and says in which order.",
    "strengths": [{"name": "A clear role", "description": "The model knows whose eyes to look with."}],
    "recommendations": [
        {"name": "Name the language", "description": "A review of C differs from one of Python.", "priority": "high"},
        {"name": "Say how long", "description": "Without a bound the answer may ramble.", "priority": "medium"},
    ],
}


class Ollama:
    """Answers each request with `answer`, a model's text, after `hold` is set."""

    def __init__(self, answer=None):
        self.answer = answer if answer is not None else f"```json\n{json.dumps(RATING, indent=2)}\n```"
        self.requests = []
        self.hold = threading.Event()
        self.hold.set()
        self._server = ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    @property
    def url(self):
        return f"http://127.0.0.1:{self._server.server_port}"

    def preferences(self):
        """What makes the program ask this server."""
        return {"selectedModelProvider": "Ollama", "ollamaBaseURL": self.url}

    def end(self):
        self.hold.set()
        self._server.shutdown()
        self._server.server_close()

    def _handler(self):
        ollama = self

        class Handler(BaseHTTPRequestHandler):
            def do_POST(self):
                body = self.rfile.read(int(self.headers["Content-Length"]))
                ollama.requests.append((self.path, json.loads(body)))
                ollama.hold.wait()
                reply = json.dumps({"message": {"role": "assistant", "content": ollama.answer}, "done": True}).encode()
                with contextlib.suppress(ConnectionError):  # whoever asked may be gone
                    self.send_response(200)
                    self.send_header("Content-Type", "application/json")
                    self.send_header("Content-Length", str(len(reply)))
                    self.end_headers()
                    self.wfile.write(reply)

            def log_message(self, *_):
                pass

        return Handler
