"""An SMTP server that prints its port, and then for each message that it takes one line of JSON with the envelope and
the file of the folder, its argument, into which it has put the message."""

import asyncio
import json
import pathlib
import sys

from aiosmtpd.smtp import SMTP


class Handler:
    taken = 0

    async def handle_RCPT(self, server, session, envelope, address, options):
        if address.startswith("refused"):
            return "550 5.1.1 No such user here"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        if b"Subject: spam" in envelope.content:
            return "554-5.7.1 This looks\r\n554 5.7.1 like spam"
        self.taken += 1
        file = pathlib.Path(sys.argv[1]) / f"{self.taken}.eml"
        file.write_bytes(envelope.content)
        print(json.dumps({"from": envelope.mail_from, "to": envelope.rcpt_tos, "file": str(file)}), flush=True)
        return "250 OK"


async def serve():
    loop = asyncio.get_running_loop()
    server = await loop.create_server(lambda: SMTP(Handler(), loop=loop), "127.0.0.1", 0)
    print(server.sockets[0].getsockname()[1], flush=True)
    await server.serve_forever()


asyncio.run(serve())
