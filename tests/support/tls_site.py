#!/usr/bin/env python3
"""A site behind TLS on the loopback: tls_site.py CERTIFICATE KEY.

Prints its port, then of each request the protocol that was agreed on and the first line, and answers 200 to all.
"""
import socket
import ssl
import sys

context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
context.load_cert_chain(sys.argv[1], sys.argv[2])
context.set_alpn_protocols(["h2", "http/1.1"])  # the client's offer decides
listener = socket.create_server(("127.0.0.1", 0))
print(listener.getsockname()[1], flush=True)
while True:
    visitor, _ = listener.accept()
    try:
        with context.wrap_socket(visitor, server_side=True) as client, client.makefile("rwb") as stream:
            line = stream.readline()
            if not line:  # a visitor may look at the name in the certificate last of all, and leave without a word
                continue
            while stream.readline().strip():
                pass
            print(client.selected_alpn_protocol(), line.decode("utf-8", "replace").strip(), flush=True)
            stream.write(b"HTTP/1.1 200 OK\r\nContent-Length: 4\r\nConnection: close\r\n\r\nbody")
    except OSError:  # whoever does not trust the certificate leaves in the middle of the handshake
        visitor.close()
