# Adds the pump station's book to a library and tells which folder it has there:
#
#   tlbimp Quorbind.dll /namespace:Quorbind /out:Interop.Quorbind.dll     (once, beside this file)
#   powershell -STA -File add_book.ps1 TOC SERVER LIBRARY
#
# TOC is pump-station\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
# server; LIBRARY the name of a library there.
param(
    [Parameter(Mandatory)] [string] $Toc,
    [Parameter(Mandatory)] [string] $Server,
    [Parameter(Mandatory)] [string] $Library
)
$ErrorActionPreference = 'Stop'

$textToc = 4
$docs = "$Server\Docs\"

# New-Object -ComObject Quorbind.Quor_Book would do without the event.
Add-Type -Path "$PSScriptRoot\Interop.Quorbind.dll"
$book = New-Object Quorbind.Quor_BookClass
$book.add_evtGetFolderName({ param($folder) Write-Host "Folder of the book: $folder" })

if ($book.Book_Valuator($Toc, "$docs$Library\Quor_TOC.xml", $textToc, $Library, 'Pump Station',
                        'PST', 'Operation', '', '', '', '', '', 0, $false, $docs)) {
    Write-Host 'The run came to its end.'
}
