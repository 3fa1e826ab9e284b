"""Sphinx: the manual. Built by build.sh, which sets the environment."""
import os

project = "KitLib"
author = "KitLib contributors"
version = release = os.environ["KITLIB_VERSION"]
extensions = ["breathe", "myst_parser"]
source_suffix = {".rst": "restructuredtext", ".md": "markdown"}
exclude_patterns = ["examples"]
breathe_projects = {"KitLib": os.environ["KITLIB_XML"]}
breathe_default_project = "KitLib"
breathe_domain_by_extension = {"h": "c", "hpp": "cpp"}
breathe_default_members = ()
primary_domain = "c"
highlight_language = "text"
html_theme = "furo"
html_title = f"KitLib {release}"
html_copy_source = False
html_show_sourcelink = False
html_static_path = []
pygments_style = "friendly"
myst_heading_anchors = 2
suppress_warnings = ["myst.xref_missing"]
nitpicky = False
