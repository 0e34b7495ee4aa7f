"""Signs programs, libraries and packages with the owner's certificate."""

import pathlib
import shlex
import subprocess

DESCRIPTION = "CorvidAPI"


class Signer:
    """The owner's certificate and key, and how osslsigncode is called with them."""

    def __init__(self, options):
        if options.pkcs12:
            self._words = ["-pkcs12", options.pkcs12.resolve()]
        else:
            self._words = ["-certs", options.certificates.resolve(), "-key", options.key.resolve()]
        if options.more_certificates:
            self._words += ["-ac", options.more_certificates.resolve()]
        if options.password_file:
            self._words += ["-readpass", options.password_file.resolve()]
        if options.timestamp:
            self._words += ["-ts", options.timestamp]

    def command(self, source, target):
        return [str(word) for word in [
            "osslsigncode", "sign", *self._words, "-h", "sha256", "-n", DESCRIPTION,
            "-in", source, "-out", target]]  # fmt: skip

    def shell_command(self):
        """Signs the file %1 in its place, for a tool that calls a shell."""
        return f"{shlex.join(self.command('%1', '%1.signed'))} && mv %1.signed %1"

    def sign(self, path):
        signed = pathlib.Path(f"{path}.signed")
        subprocess.run(self.command(path, signed), check=True, stdout=subprocess.DEVNULL)
        signed.replace(path)


def signer(options):
    """A Signer when the options name a certificate, or nothing."""
    return Signer(options) if options.pkcs12 or options.certificates else None


def add_options(parser):
    group = parser.add_argument_group("signing", "without a certificate nothing is signed")
    group.add_argument("--certificates", type=pathlib.Path, help="PEM or SPC file, with --key")
    group.add_argument("--key", type=pathlib.Path, help="its private key")
    group.add_argument("--pkcs12", type=pathlib.Path, help="both in one file, instead")
    group.add_argument("--more-certificates", type=pathlib.Path, help="of the issuers, PEM")
    group.add_argument("--password-file", type=pathlib.Path, help="the key's password")
    group.add_argument("--timestamp", metavar="URL", help="an RFC 3161 time stamp service")
