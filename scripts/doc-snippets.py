#!/usr/bin/env python3
"""Turns the C++ and CMake code blocks of Markdown documents into consumer projects, so that the
tests compile and link every example exactly as the documentation shows it.

    doc-snippets.py OUTPUT_DIR DOCUMENT.md...

For each document, every block tagged cpp or c++ becomes one source file; a block that declares no
`main` is still compiled and linked (a generated main() keeps the program whole). Every block tagged
cmake becomes one project that builds those sources as `my_host` and then runs the block, which must
find the package and link `my_host` so that the sources link. A document with C++ blocks but no CMake
block gets one project that links every ZrSIMPrp library the package has.

An HTML comment on the line before a block changes how it is taken:
    <!-- fragment -->       C++ statements: compiled inside a function body (its #include lines
                            are moved before the function)
    <!-- skip: REASON -->   not compiled; the reason is printed
Source files start with a #line directive, so a compiler names the document's own line.

Prints one line per project directory; exits 1 when a document named by --require yields none.
"""
import argparse
import os
import re
import sys

FENCE = re.compile(r"^(```+|~~~+)\s*([A-Za-z0-9_+-]*)\s*$")
MARKER = re.compile(r"^<!--\s*(fragment|skip)\s*(?::\s*(.*?))?\s*-->$")
CPP_TAGS = {"cpp", "c++", "cxx"}
CMAKE_TAGS = {"cmake"}

DEFAULT_LINKING = """find_package(ZrSIMPrp CONFIG REQUIRED COMPONENTS Core OPTIONAL_COMPONENTS ProjectDb Widgets)
target_link_libraries(my_host PRIVATE ZrSIMPrp::Core)
foreach(library ProjectDb Widgets)
  if(TARGET ZrSIMPrp::${library})
    target_link_libraries(my_host PRIVATE ZrSIMPrp::${library})
  endif()
endforeach()
"""


class Block:
    def __init__(self, language, first_line, text, marker, reason):
        self.language = language  # "cpp" or "cmake"
        self.first_line = first_line  # the document line of the block's first code line
        self.text = text
        self.marker = marker  # None, "fragment" or "skip"
        self.reason = reason


def read_blocks(path):
    """The document's fenced blocks tagged C++ or CMake, in order."""
    with open(path, encoding="utf-8") as document:
        lines = document.read().split("\n")
    blocks = []
    previous = ""
    i = 0
    while i < len(lines):
        fence = FENCE.match(lines[i])
        if not fence:
            if lines[i].strip():
                previous = lines[i].strip()
            i += 1
            continue
        opener, tag = fence.group(1), fence.group(2).lower()
        end = i + 1
        while end < len(lines) and not lines[end].startswith(opener[0] * len(opener)):
            end += 1
        if end == len(lines):
            raise SystemExit(f"{path}:{i + 1}: the code block is never closed")
        language = "cpp" if tag in CPP_TAGS else "cmake" if tag in CMAKE_TAGS else None
        if language:
            marker = MARKER.match(previous)
            blocks.append(
                Block(language, i + 2, "\n".join(lines[i + 1 : end]) + "\n",
                      marker.group(1) if marker else None,
                      (marker.group(2) or "") if marker else ""))
        previous = ""
        i = end + 1
    return blocks


def cpp_source(block, document, index):
    """The block as a translation unit, with #line directives that point into the document."""
    origin = f'#line {block.first_line} "{document}"\n'
    if block.marker != "fragment":
        return origin + block.text
    includes, body = [], []
    for number, line in enumerate(block.text.split("\n")):
        (includes if line.lstrip().startswith("#include") else body).append((number, line))
    text = "".join(f'#line {block.first_line + n} "{document}"\n{line}\n' for n, line in includes)
    text += f"[[maybe_unused]] static void DocumentedFragment{index}() {{\n"
    if body:
        text += f'#line {block.first_line + body[0][0]} "{document}"\n'
        text += "\n".join(line for _, line in body) + "\n"
    return text + "}\n"


def project_name(document):
    stem = os.path.splitext(os.path.relpath(document))[0]
    return re.sub(r"[^A-Za-z0-9]+", "-", stem).strip("-").lower()


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as out:
        out.write(text)


def write_document(document, out_dir):
    """Writes the document's projects; returns their directories."""
    blocks = read_blocks(document)
    for block in blocks:
        if block.marker == "skip":
            reason = block.reason or "no reason given"
            print(f"{document}:{block.first_line - 1}: skipped ({reason})", file=sys.stderr)
    taken = [block for block in blocks if block.marker != "skip"]
    cpp = [block for block in taken if block.language == "cpp"]
    cmake = [block for block in taken if block.language == "cmake"]
    if not cpp and not cmake:
        return []
    name = project_name(document)
    sources_dir = os.path.join(out_dir, name, "sources")
    sources = []
    for index, block in enumerate(cpp):
        source = os.path.join(sources_dir, f"block-{block.first_line}.cpp")
        write(source, cpp_source(block, os.path.abspath(document), index))
        sources.append(source)
    if not any(re.search(r"\bint\s+main\s*\(", block.text) for block in cpp):
        source = os.path.join(sources_dir, "generated-main.cpp")
        write(source, "// The document's examples have no main(); this one keeps the program whole.\n"
                      "int main() { return 0; }\n")
        sources.append(source)
    linkings = [(f"cmake-{block.first_line}", block.text) for block in cmake] or [("default", DEFAULT_LINKING)]
    projects = []
    for suffix, linking in linkings:
        project_dir = os.path.join(out_dir, name, suffix)
        source_list = "\n  ".join(f'"{source}"' for source in sources)
        write(os.path.join(project_dir, "CMakeLists.txt"),
              f"# Generated from {document}: its examples as a host builds them.\n"
              "cmake_minimum_required(VERSION 3.25)\n"
              "project(DocumentedExample LANGUAGES CXX)\n"
              "set(CMAKE_CXX_STANDARD 17)\n"
              "set(CMAKE_CXX_STANDARD_REQUIRED ON)\n"
              f"add_executable(my_host\n  {source_list})\n"
              "include(${CMAKE_CURRENT_LIST_DIR}/linking.cmake)\n")
        write(os.path.join(project_dir, "linking.cmake"), linking)
        projects.append(project_dir)
    return projects


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("output_dir")
    parser.add_argument("documents", nargs="+")
    parser.add_argument("--require", action="append", default=[],
                        help="a document that must yield at least one project")
    arguments = parser.parse_args()
    status = 0
    for document in arguments.documents:
        projects = write_document(document, arguments.output_dir)
        for project in projects:
            print(project)
        if not projects and document in arguments.require:
            print(f"{document}: no C++ or CMake block to test", file=sys.stderr)
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main())
