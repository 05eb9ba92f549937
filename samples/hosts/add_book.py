"""Adds the pump station's book to a library and tells which folder it has there:

    python add_book.py TOC SERVER LIBRARY

TOC is pump-station\\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
server; LIBRARY the name of a library there. Needs pywin32.
"""

import sys

from win32com.client import DispatchWithEvents

TEXT_TOC = 4


class BookEvents:
    def OnevtGetFolderName(self, folder):
        print("Folder of the book:", folder)


def main(toc, server, library):
    docs = server + "\\Docs\\"
    book = DispatchWithEvents("Quorbind.Quor_Book", BookEvents)
    finished = book.Book_Valuator(
        vstrtocpath=toc,
        vstrQuorTOcPath=docs + library + "\\Quor_TOC.xml",
        vintType=TEXT_TOC,
        vstrProductName=library,
        vstrBookName="Pump Station",
        vstrBookAcro="PST",
        vstrCategory="Operation",
        vstrKeywordsPath="",
        vstrBookCategoryPath="",
        strKeyWords="",
        strCategory="",
        spath="",
        vlngInstallType=0,
        blnChkCateFlag=False,
        strServerPath=docs)
    if finished:
        print("The run came to its end.")
    return 0 if finished else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
