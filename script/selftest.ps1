# Shows on a real Windows what the tests of this repository can only show under Wine: that the
# component loads without registration, adds each kind of book, waits for held files, respects
# read-only ones, keeps attributes and access rights, and stands many hosts on one share.
#
#   powershell -STA -ExecutionPolicy Bypass -File selftest.ps1 -Build FOLDER [-Share FOLDER] [-Saves N]
#
# FOLDER of -Build holds Quorbind.dll, Quorbind.X.manifest and QuorToolset.dll of the width of this
# PowerShell. -Share is a folder on a network share that may be written to; without it the hosts
# meet on the local disk. Everything happens in new folders, which are taken away at the end. Where
# the library tool set is not installed, QuorToolset.dll is registered for the present user while
# the test runs. Boxes of the component are read and closed; leave the mouse alone.
#
# Each line says ok, FAILED or not tried. The exit status is the number of failures.
param(
    [Parameter(Mandatory)] [string] $Build,
    [string] $Share,
    [int] $Saves = 50,
    # For the other hosts, which this script starts.
    [ValidateSet('', 'Writer', 'Reader')] [string] $Role = '',
    [string] $File = '',
    [int] $Number = 0
)
$ErrorActionPreference = 'Stop'

$Build = (Resolve-Path $Build).ProviderPath
$samples = Join-Path $PSScriptRoot '..\samples'
$library = 'Selftest'
$writers = 4
$readers = 4
$everybody = 'S-1-1-0'

# What there is no cmdlet for: the classes of a manifest, and somebody who closes boxes.
Add-Type -TypeDefinition @'
using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;

public static class Manifest {
  [StructLayout(LayoutKind.Sequential, CharSet = CharSet.Unicode)]
  struct Description {
    public int Size;
    public uint Flags;
    public string Source;
    public ushort Architecture;
    public ushort Language;
    public string Folder;
    public string ResourceName;
    public string Application;
    public IntPtr Module;
  }
  [DllImport("kernel32.dll", CharSet = CharSet.Unicode, SetLastError = true)]
  static extern IntPtr CreateActCtxW(ref Description description);
  [DllImport("kernel32.dll", SetLastError = true)]
  static extern bool ActivateActCtx(IntPtr context, out IntPtr cookie);

  // This thread knows the classes of the manifest from now on.
  public static void Use(string path) {
    Description description = new Description();
    description.Size = Marshal.SizeOf(typeof(Description));
    description.Source = path;
    IntPtr context = CreateActCtxW(ref description);
    IntPtr cookie;
    if (context == new IntPtr(-1) || !ActivateActCtx(context, out cookie)) {
      throw new System.ComponentModel.Win32Exception();
    }
  }
}

// Closes the component's boxes by their OK button, and remembers what they said.
public static class Person {
  delegate bool Visitor(IntPtr window, IntPtr parameter);
  [DllImport("user32.dll")]
  static extern bool EnumWindows(Visitor visitor, IntPtr parameter);
  [DllImport("user32.dll")]
  static extern bool EnumChildWindows(IntPtr window, Visitor visitor, IntPtr parameter);
  [DllImport("user32.dll", CharSet = CharSet.Unicode)]
  static extern int GetWindowTextW(IntPtr window, StringBuilder text, int size);
  [DllImport("user32.dll", CharSet = CharSet.Unicode)]
  static extern int GetClassNameW(IntPtr window, StringBuilder name, int size);
  [DllImport("user32.dll")]
  static extern uint GetWindowThreadProcessId(IntPtr window, out uint process);
  [DllImport("user32.dll")]
  static extern bool IsWindow(IntPtr window);
  [DllImport("user32.dll")]
  static extern bool IsWindowVisible(IntPtr window);
  [DllImport("user32.dll")]
  static extern bool PostMessageW(IntPtr window, uint message, IntPtr first, IntPtr second);

  const uint Click = 0x00F5;
  static readonly List<string> said = new List<string>();

  public static void Begin() {
    Thread thread = new Thread(delegate() {
      for (;;) {
        EnumWindows(Look, IntPtr.Zero);
        Thread.Sleep(50);
      }
    });
    thread.IsBackground = true;
    thread.Start();
  }

  // What the boxes said since the last call of this.
  public static string[] TakeSaid() {
    lock (said) {
      string[] result = said.ToArray();
      said.Clear();
      return result;
    }
  }

  static string ClassOf(IntPtr window) {
    StringBuilder name = new StringBuilder(64);
    GetClassNameW(window, name, name.Capacity);
    return name.ToString();
  }

  static string TextOf(IntPtr window) {
    StringBuilder text = new StringBuilder(4096);
    GetWindowTextW(window, text, text.Capacity);
    return text.ToString();
  }

  // A message box has one button, OK, and its text in the only label that has one.
  static bool Look(IntPtr window, IntPtr unused) {
    uint process;
    GetWindowThreadProcessId(window, out process);
    if (process != Process.GetCurrentProcess().Id || !IsWindowVisible(window) ||
        ClassOf(window) != "#32770") {
      return true;
    }
    string message = "";
    List<IntPtr> buttons = new List<IntPtr>();
    EnumChildWindows(window, delegate(IntPtr child, IntPtr alsoUnused) {
      if (ClassOf(child) == "Button") {
        buttons.Add(child);
      } else if (ClassOf(child) == "Static") {
        message += TextOf(child);
      }
      return true;
    }, IntPtr.Zero);
    if (buttons.Count == 1) {
      Close(window, buttons[0], message);
    }
    return true;
  }

  static void Close(IntPtr box, IntPtr button, string message) {
    lock (said) {
      said.Add(message);
    }
    while (IsWindow(box)) {
      PostMessageW(button, Click, IntPtr.Zero, IntPtr.Zero);
      Thread.Sleep(100);
    }
  }
}
'@

function New-Component([string] $class) {
    [Activator]::CreateInstance([Type]::GetTypeFromProgID($class, $true))
}

[Manifest]::Use((Join-Path $Build 'Quorbind.X.manifest'))

# The other hosts

# Adds keywords to one file that all writers share. Each save is of the whole file, so of the
# keywords that are added at the same time the last writer's stay.
function Invoke-Writer {
    [Person]::Begin()
    $book = New-Component 'Quorbind.Quor_Book'
    for ($save = 1; $save -le $Saves; $save++) {
        [void] $book.AddKeywordsToXmlFile($File, "Writer$Number", "word-$Number-$save")
    }
    $said = [Person]::TakeSaid()
    $said | ForEach-Object { [Console]::Error.WriteLine("writer ${Number}: $_") }
    return $said.Count
}

# A host that reads waits as long as the component does.
function Open-Shared([string] $path) {
    $end = [DateTime]::UtcNow.AddSeconds(2)
    while ($true) {
        try {
            return [IO.File]::Open($path, 'Open', 'Read', [IO.FileShare]'ReadWrite, Delete')
        } catch {
            if ([DateTime]::UtcNow -gt $end) { throw }
            Start-Sleep -Milliseconds 20
        }
    }
}

function Read-Shared([string] $path) {
    $reader = New-Object IO.StreamReader((Open-Shared $path), $true)
    try {
        return $reader.ReadToEnd()
    } finally {
        $reader.Dispose()
    }
}

# The keywords of a file that is whole; an error otherwise.
function Get-Words([string] $path) {
    $document = New-Object Xml.XmlDocument
    $document.LoadXml((Read-Shared $path).TrimStart([char]0xFEFF))
    if ($document.DocumentElement.Name -ne 'Books') { throw 'no file of keywords' }
    $words = @($document.SelectNodes('/Books/Book/Keywords/Keyword') | ForEach-Object { $_.InnerText })
    if ($words -notmatch '^word-\d+-\d+$') { throw 'a keyword that nobody wrote' }
    return $words
}

function Invoke-Reader {
    $reads = 0
    do {
        [void] (Get-Words $File)
        $reads++
        Start-Sleep -Milliseconds 20
    } until (Test-Path "$File.enough")
    Write-Host "reader ${Number}: $reads reads"
    return 0
}

if ($Role) {
    try {
        if ($Role -eq 'Writer') { exit (Invoke-Writer) } else { exit (Invoke-Reader) }
    } catch {
        [Console]::Error.WriteLine("$Role ${Number}: $_")
        exit 1
    }
}

# The tests

$script:failures = 0

function Test-That([string] $name, [scriptblock] $test) {
    [void] [Person]::TakeSaid()
    try {
        & $test | Out-Null
        Write-Host "ok         $name"
    } catch {
        $script:failures++
        Write-Host "FAILED     ${name}: $_"
    }
}

function Skip-Test([string] $name, [string] $reason) {
    Write-Host "not tried  ${name}: $reason"
}

function Assert([bool] $holds, [string] $what) {
    if (-not $holds) { throw $what }
}

function Assert-NothingSaid {
    $said = [Person]::TakeSaid()
    Assert ($said.Count -eq 0) "said: $($said -join ' | ')"
}

function New-Folder([string] $parent) {
    $path = Join-Path $parent ('quorbind-' + [Guid]::NewGuid().ToString('N').Substring(0, 8))
    [void] (New-Item -ItemType Directory $path)
    return $path
}

function Write-Text([string] $path, [string] $text) {
    [void] (New-Item -ItemType Directory -Force (Split-Path $path))
    [IO.File]::WriteAllText($path, $text)
}

function Get-Bytes([string] $path) {
    [BitConverter]::ToString([IO.File]::ReadAllBytes($path))
}

function New-Server([string] $parent) {
    $server = New-Folder $parent
    Write-Text "$server\Docs\Quor_Selection.xml" (
        '<Quor_Selection_List><Quors><Quor>' +
        "<Quor_Name>$library</Quor_Name><Quor_Location>Docs\$library</Quor_Location>" +
        '</Quor></Quors></Quor_Selection_List>')
    Write-Text "$server\Docs\$library\Quor_TOC.xml" '<Quor_Master><Quor_Books/></Quor_Master>'
    Write-Text "$server\Docs\$library\Quor_BookCategories.xml" (
        '<BookSet_Categories><Category><CategoryName>Other Category</CategoryName></Category>' +
        '</BookSet_Categories>')
    return $server
}

# Holds a file open in a runspace of its own for some milliseconds; answers when it is held.
function Start-Holder([string] $path, [int] $milliseconds, [IO.FileShare] $sharing) {
    $held = New-Object Threading.ManualResetEvent($false)
    $holder = [PowerShell]::Create()
    [void] $holder.AddScript({
        param($path, $milliseconds, $sharing, $held)
        $file = [IO.File]::Open($path, 'Open', 'Read', $sharing)
        [void] $held.Set()
        Start-Sleep -Milliseconds $milliseconds
        $file.Dispose()
    }).AddArgument($path).AddArgument($milliseconds).AddArgument($sharing).AddArgument($held)
    $run = $holder.BeginInvoke()
    Assert ($held.WaitOne(10000)) 'the file could not be held'
    return @{ Shell = $holder; Run = $run }
}

function Wait-Holder($holder) {
    [void] $holder.Shell.EndInvoke($holder.Run)
    $holder.Shell.Dispose()
}

function Get-Seconds([scriptblock] $work) {
    return (Measure-Command $work).TotalSeconds
}

function Test-Additions([string] $server, $book, $config) {
    $docs = "$server\Docs\"
    $folder = "$docs$library"
    $catalogue = "$folder\Quor_TOC.xml"
    $kinds = @(
        @{ Kind = 4; Sample = 'pump-station'; Toc = 'toc-prepared.txt'; Name = 'Pump Station'; Acro = 'PST'; Books = @('PST') },
        @{ Kind = 2; Sample = 'weather-mast'; Toc = 'toc.htm'; Name = 'Weather Mast'; Acro = 'WMH'; Books = @('WMH') },
        @{ Kind = 1; Sample = 'site-safety'; Toc = 'Book_SAF.xml'; Name = ''; Acro = ''; Books = @('SAF') },
        @{ Kind = 3; Sample = 'workshop'; Toc = 'books.xlsx'; Name = ''; Acro = ''; Books = @() })
    foreach ($kind in $kinds) {
        Test-That "a book of kind $($kind.Kind) is added" {
            $source = New-Folder $env:TEMP
            try {
                Copy-Item -Recurse (Join-Path $samples $kind.Sample) $source
                $before = @($config.BookInfo($catalogue)).Count
                $toc = Join-Path $source "$($kind.Sample)\$($kind.Toc)"
                $ended = $book.Book_Valuator($toc, $catalogue, $kind.Kind, $library, $kind.Name,
                                             $kind.Acro, 'Operation', '', "$folder\Quor_BookCategories.xml",
                                             'mast;wind', 'Operation', "$folder\Quor_SearchKeywords.xml",
                                             0, $false, $docs)
                Assert-NothingSaid
                Assert $ended 'the run did not come to its end'
                Assert (@($config.BookInfo($catalogue)).Count -gt $before) 'the catalogue has no new book'
                foreach ($acronym in $kind.Books) {
                    Assert ([bool] (Get-ChildItem -Recurse $folder -Filter "Book_$acronym.xml")) "no Book_$acronym.xml"
                }
            } finally {
                Remove-Item -Recurse -Force $source
            }
        }
    }
}

function Test-HeldFiles([string] $categories, $config) {
    Test-That 'a file that is held for a second is waited for' {
        $holder = Start-Holder $categories 1000 'None'
        $seconds = Get-Seconds { $config.AddBookCateToXMLFile($categories, 'Waited') }
        Wait-Holder $holder
        Assert-NothingSaid
        Assert ($seconds -gt 0.5) "it was not held: $seconds s"
        Assert ([IO.File]::ReadAllText($categories).Contains('Waited')) 'the category is missing'
    }
    Test-That 'a file that stays held is given up after two seconds, and stays' {
        $before = Get-Bytes $categories
        $holder = Start-Holder $categories 8000 'Read'
        $seconds = Get-Seconds { $config.AddBookCateToXMLFile($categories, 'Held') }
        Wait-Holder $holder
        $said = [Person]::TakeSaid() -join ' | '
        Assert ($said.Contains('Permission denied')) "said: $said"
        Assert ($seconds -ge 1.9 -and $seconds -lt 6) "it took $seconds s"
        Assert ((Get-Bytes $categories) -eq $before) 'the file has changed'
    }
}

# On a share the server may not be able to do this; the component waits for such readers there.
function Test-OpenReaders([string] $categories, $config) {
    Test-That 'a file that others read and let go is replaced under them' {
        $before = [IO.File]::ReadAllText($categories)
        $reader = New-Object IO.StreamReader((Open-Shared $categories), $true)
        try {
            $config.AddBookCateToXMLFile($categories, 'Under readers')
            Assert-NothingSaid
            Assert ($reader.ReadToEnd() -eq $before) 'the reader saw another file'
        } finally {
            $reader.Dispose()
        }
        Assert ([IO.File]::ReadAllText($categories).Contains('Under readers')) 'the category is missing'
    }
}

function Test-MarksOfFiles([string] $categories, $config) {
    Test-That 'a read-only file is left alone' {
        $before = Get-Bytes $categories
        Set-ItemProperty $categories IsReadOnly $true
        try {
            $config.AddBookCateToXMLFile($categories, 'Read only')
            $said = [Person]::TakeSaid() -join ' | '
            Assert ($said.Contains('Permission denied')) "said: $said"
            Assert (Get-ItemProperty $categories).IsReadOnly 'the mark is gone'
            Assert ((Get-Bytes $categories) -eq $before) 'the file has changed'
        } finally {
            Set-ItemProperty $categories IsReadOnly $false
        }
    }
    Test-That 'attributes are kept' {
        $marks = [IO.FileAttributes]'Hidden, System, NotContentIndexed'
        [IO.File]::SetAttributes($categories, $marks)
        try {
            $config.AddBookCateToXMLFile($categories, 'Marked')
            Assert-NothingSaid
            Assert ([IO.File]::ReadAllText($categories).Contains('Marked')) 'the category is missing'
            $kept = [IO.File]::GetAttributes($categories)
            Assert (($kept -band $marks) -eq $marks) "they are $kept"
        } finally {
            [IO.File]::SetAttributes($categories, [IO.FileAttributes]::Normal)
        }
    }
    Test-That 'access rights are kept' {
        icacls $categories /grant "*${everybody}:(R)"
        Assert ($LASTEXITCODE -eq 0) 'icacls has failed'
        $before = (Get-Acl $categories).GetSecurityDescriptorSddlForm('Access')
        $config.AddBookCateToXMLFile($categories, 'Guarded')
        Assert-NothingSaid
        $after = (Get-Acl $categories).GetSecurityDescriptorSddlForm('Access')
        Assert ($after -eq $before) "they were $before and are $after"
    }
    $link = "$categories.link.xml"
    try {
        [void] (New-Item -ItemType SymbolicLink -Path $link -Target $categories)
    } catch {
        Skip-Test 'a symbolic link stays one' "no link can be made here ($_)"
        return
    }
    Test-That 'a symbolic link stays one, and its file is changed' {
        $config.AddBookCateToXMLFile($link, 'Linked')
        Assert-NothingSaid
        Assert ([bool] ((Get-Item $link -Force).Attributes -band [IO.FileAttributes]::ReparsePoint)) 'the link is gone'
        Assert ([IO.File]::ReadAllText($categories).Contains('Linked')) 'its file has not changed'
    }
}

function Start-Host([string] $role, [int] $number, [string] $file) {
    $words = @('-NoProfile', '-STA', '-ExecutionPolicy', 'Bypass', '-File', "`"$PSCommandPath`"",
               '-Build', "`"$Build`"", '-Saves', $Saves, '-Role', $role, '-Number', $number,
               '-File', "`"$file`"")
    $process = Start-Process -FilePath (Get-Process -Id $PID).Path -ArgumentList $words -NoNewWindow -PassThru
    # Without this the exit status is lost.
    [void] $process.Handle
    return $process
}

function Wait-Hosts($processes) {
    foreach ($process in $processes) {
        $process.WaitForExit()
        Assert ($process.ExitCode -eq 0) 'a host has failed; it says how above'
    }
}

function Test-ManyHosts([string] $server, $book) {
    $keywords = "$server\Docs\$library\Quor_SharedKeywords.xml"
    $book.AddKeywordsToXmlFile($keywords, 'Nobody', 'word-0-0')
    Test-That "$writers writers and $readers readers share a file in $server" {
        $reading = @(1..$readers | ForEach-Object { Start-Host 'Reader' $_ $keywords })
        try {
            Wait-Hosts @(1..$writers | ForEach-Object { Start-Host 'Writer' $_ $keywords })
        } finally {
            [IO.File]::WriteAllText("$keywords.enough", '')
        }
        Wait-Hosts $reading
        $last = @(1..$writers | ForEach-Object { "word-$_-$Saves" })
        Assert ([bool] (Get-Words $keywords | Where-Object { $last -contains $_ })) 'no last save is there'
        Assert (-not (Get-ChildItem (Split-Path $keywords) -Filter '*.tmp')) 'a temporary is left'
    }
}

function Test-IsRegistered([string] $class) {
    return $null -ne [Type]::GetTypeFromProgID($class)
}

function Invoke-Regsvr32([string[]] $words) {
    $process = Start-Process regsvr32 -ArgumentList ($words + "`"$Build\QuorToolset.dll`"") -Wait -PassThru
    Assert ($process.ExitCode -eq 0) 'regsvr32 has failed'
}

[Person]::Begin()
$bringsToolset = -not (Test-IsRegistered 'Quor_XmlTextRules.clsXmlTextRules')
$serverBefore = $env:QUOR_SERVER
$local = New-Server $env:TEMP
$shared = $null
try {
    if ($bringsToolset) { Invoke-Regsvr32 '/s', '/n', '/i:user' }
    $env:QUOR_SERVER = $local
    Write-Host "$([Environment]::OSVersion.VersionString), $(8 * [IntPtr]::Size) bits, PowerShell $($PSVersionTable.PSVersion)"

    Test-That 'the component loads by its manifest, without registration' {
        Assert (-not (Test-Path 'Registry::HKEY_CLASSES_ROOT\Quorbind.Quor_Book')) (
            'it is registered here: unregister it, or this says nothing')
        [void] (New-Component 'Quorbind.CTOCToXML')
        [void] (New-Component 'Quorbind.cSort')
    }
    $book = New-Component 'Quorbind.Quor_Book'
    $config = New-Component 'Quorbind.Book_Config'
    Test-Additions $local $book $config
    $categories = "$local\Docs\$library\Quor_BookCategories.xml"
    Test-HeldFiles $categories $config
    Test-OpenReaders $categories $config
    Test-MarksOfFiles $categories $config
    Test-ManyHosts $local $book
    if ($Share) {
        $shared = New-Server $Share
        $categories = "$shared\Docs\$library\Quor_BookCategories.xml"
        Test-HeldFiles $categories $config
        Test-MarksOfFiles $categories $config
        Test-ManyHosts $shared $book
    } else {
        Skip-Test 'many hosts on a share' 'no -Share was given'
    }
} finally {
    $env:QUOR_SERVER = $serverBefore
    if ($bringsToolset) { Invoke-Regsvr32 '/s', '/u', '/n', '/i:user' }
    foreach ($folder in @($local, $shared) -ne $null) {
        Remove-Item -Recurse -Force $folder
    }
}
Write-Host "$script:failures failures"
exit $script:failures
