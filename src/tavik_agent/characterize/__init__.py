"""The command tavik-characterize: a request on the screen, a log of requests, two runs compared."""

NAME = "tavik-characterize"
TROUBLE = 2  # the exit status when something is not as expected
