# Adds the books that a list names, one after the other, as a scheduled task does at night:
#
#   powershell -STA -File add_books.ps1 LIST SERVER LIBRARY
#
# LIST is a CSV file with the columns Toc (a prepared text, with its whole path), Name and Acro; SERVER
# the folder of the documentation server; LIBRARY the name of a library there. The exit code is the
# number of books that were not added.
param(
    [Parameter(Mandatory)] [string] $List,
    [Parameter(Mandatory)] [string] $Server,
    [Parameter(Mandatory)] [string] $Library
)
$ErrorActionPreference = 'Stop'

$textToc = 4
$docs = "$Server\Docs\"
$catalogue = "$docs$Library\Quor_TOC.xml"

# The catalogue tells whether a book was added: what Book_Valuator answers is that the run came to its
# end. Each book has an object of its own, which keeps nothing of the one before.
$config = New-Object -ComObject Quorbind.Book_Config
$failed = 0
foreach ($entry in Import-Csv $List) {
    $before = @($config.BookInfo($catalogue)).Count
    $book = New-Object -ComObject Quorbind.Quor_Book
    $null = $book.Book_Valuator($entry.Toc, $catalogue, $textToc, $Library, $entry.Name, $entry.Acro,
                                '', '', '', '', '', '', 0, $false, $docs)
    if (@($config.BookInfo($catalogue)).Count -gt $before) {
        Write-Host "Added $($entry.Name)."
    } else {
        Write-Host "Not added: $($entry.Name), from $($entry.Toc)"
        $failed++
    }
}
exit $failed
