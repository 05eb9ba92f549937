# Adds the books that a list names, one after the other, as a scheduled task does at night:
#
#   powershell -File add_books.ps1 LIST SERVER LIBRARY
#
# LIST is a CSV file with the columns Toc (a prepared text, with its whole path), Name and Acro; SERVER
# the folder of the documentation server; LIBRARY the name of a library there. The exit code is the
# number of books that were not added.
#
# What the component refuses it tells in a message box, and waits for an answer that nobody gives at
# night. So each book is added in a process of its own, by this script with the number of its row, and
# a process that takes longer than -Seconds is ended. Nor does a book then get anything of the one before,
# such as a folder that was typed for it: the objects of a process share that.
param(
    [Parameter(Mandatory)] [string] $List,
    [Parameter(Mandatory)] [string] $Server,
    [Parameter(Mandatory)] [string] $Library,
    [int] $Seconds = 300,
    [int] $Row = -1
)
$ErrorActionPreference = 'Stop'

$textToc = 4
$Server = $Server.TrimEnd('\')
$docs = "$Server\Docs\"
$catalogue = "$docs$Library\Quor_TOC.xml"
$entries = @(Import-Csv $List)

# Whether the catalogue has a book more afterwards: what Book_Valuator answers is no more than that the
# run came to its end.
function Add-Book($entry) {
    $config = New-Object -ComObject Quorbind.Book_Config
    $before = @($config.BookInfo($catalogue)).Count
    $book = New-Object -ComObject Quorbind.Quor_Book
    $null = $book.Book_Valuator($entry.Toc, $catalogue, $textToc, $Library, $entry.Name, $entry.Acro,
                                '', '', '', '', '', '', 0, $false, $docs)
    @($config.BookInfo($catalogue)).Count -gt $before
}

# How the process that adds the book of a row ended, in words.
function Add-InProcess($number) {
    $words = '-NoProfile', '-STA', '-File', "`"$PSCommandPath`"", "`"$List`"", "`"$Server`"", "`"$Library`"",
             '-Row', $number
    $process = Start-Process powershell -ArgumentList $words -WindowStyle Hidden -PassThru
    # Windows forgets the exit code of a process that nobody has a handle of.
    $null = $process.Handle
    if (-not $process.WaitForExit($Seconds * 1000)) {
        Stop-Process -Id $process.Id -Force -ErrorAction SilentlyContinue
        return "Not added, ended after $Seconds seconds"
    }
    if ($process.ExitCode -eq 0) { 'Added' } else { 'Not added' }
}

if ($Row -ge 0) {
    if (Add-Book $entries[$Row]) { exit 0 } else { exit 1 }
}

$failed = 0
for ($number = 0; $number -lt $entries.Count; $number++) {
    $end = Add-InProcess $number
    Write-Host "${end}: $($entries[$number].Name), from $($entries[$number].Toc)"
    if ($end -ne 'Added') { $failed++ }
}
exit $failed
