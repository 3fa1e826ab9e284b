__version__ = "4.27.1"
