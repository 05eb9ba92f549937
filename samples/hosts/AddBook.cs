// Adds the pump station's book to a library and tells which folder it has there:
//
//   tlbimp Quorbind.dll /namespace:Quorbind /out:Interop.Quorbind.dll
//   csc /reference:Interop.Quorbind.dll AddBook.cs
//   AddBook TOC SERVER LIBRARY
//
// TOC is pump-station\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
// server; LIBRARY the name of a library there.

using System;
using Quorbind;

static class AddBook
{
    const short TextToc = 4;

    // Dialogs and events need an apartment of this thread's own.
    [STAThread]
    static int Main(string[] arguments)
    {
        string toc = arguments[0];
        string docs = arguments[1] + @"\Docs\";
        string library = arguments[2];

        var book = new Quor_Book();
        book.evtGetFolderName += folder => Console.WriteLine("Folder of the book: " + folder);

        bool finished = book.Book_Valuator(
            vstrtocpath: toc,
            vstrQuorTOcPath: docs + library + @"\Quor_TOC.xml",
            vintType: TextToc,
            vstrProductName: library,
            vstrBookName: "Pump Station",
            vstrBookAcro: "PST",
            vstrCategory: "Operation",
            vstrKeywordsPath: "",
            vstrBookCategoryPath: "",
            strKeyWords: "",
            strCategory: "",
            spath: "",
            vlngInstallType: 0,
            blnChkCateFlag: false,
            strServerPath: docs);
        if (finished)
        {
            Console.WriteLine("The run came to its end.");
        }
        return finished ? 0 : 1;
    }
}
