"""Settings files as tests make and read them."""


def scrambled(*plain):
    """A settings file of these plain lines."""
    return b"".join(bytes(code + 1 for code in line.encode("utf-8")) + b"\r\n" for line in plain)


def plain_lines(content):
    return [bytes(code - 1 for code in line).decode("utf-8") for line in content.split(b"\r\n")[:-1]]
