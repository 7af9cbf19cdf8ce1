"""The extension in a real server of PostgreSQL 15, whose databases have the locale C."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import time

import pytest

ROOT = pathlib.Path(__file__).parents[2]
BIN = pathlib.Path(os.environ["POSTWRIGHT_BIN"])
SERVER = pathlib.Path("usr/lib/postgresql/15")
SHARE = pathlib.Path("usr/share/postgresql/15")
MILLION = 1_000_000


def as_postgres(*command, **options):
    """Runs a command as a user that PostgreSQL starts for, who is not root."""
    user = ["runuser", "-u", "postgres", "--"] if os.getuid() == 0 else []
    return subprocess.run([*user, *command], encoding="utf-8", capture_output=True,
                          env=os.environ | {"LC_ALL": "C"}, **options)


class Server:
    """A server with the extension in a tree of its own: it looks for what it loads from where its
    program lies, and nothing of the machine's is touched."""

    def __init__(self, folder):
        self.tree, self.data, self.sockets = folder / "tree", folder / "data", folder / "sockets"
        shutil.copytree(pathlib.Path("/", SERVER, "bin"), self.tree / SERVER / "bin")
        (self.tree / SHARE).parent.mkdir(parents=True)
        for part in (SERVER / "lib", SHARE):
            subprocess.run(["cp", "-rs", f"/{part}", (self.tree / part).parent], check=True)
        for component in ("postgresql", "core", "local", "data"):
            subprocess.run(["cmake", "--install", BIN.parent, "--prefix", self.tree / "usr",
                            "--component", component], check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["chmod", "-R", "a+rX", self.tree], check=True)
        for path in (self.data, self.sockets):
            path.mkdir(mode=0o700)
            if os.getuid() == 0:
                shutil.chown(path, "postgres", "postgres")
        self.run("initdb", "-D", self.data, "-U", "postgres", "--locale=C", "-E", "UTF8", "-A", "trust")
        self.run("pg_ctl", "-D", self.data, "-w", "-l", self.data / "log", "-o",
                 f"-k {self.sockets} -c listen_addresses='' -c fsync=off -c max_wal_size=4GB", "start")
        self.sql("CREATE EXTENSION postwright")

    def run(self, program, *arguments):
        done = as_postgres(self.tree / SERVER / "bin" / program, *arguments, stdin=subprocess.DEVNULL,
                           cwd="/")
        assert done.returncode == 0, done.stdout + done.stderr

    def ask(self, statements, database="postgres", user="postgres"):
        return as_postgres("psql", "-h", self.sockets, "-U", user, "-d", database, "-X", "-q", "-A",
                           "-t", "-v", "ON_ERROR_STOP=1", "-f", "-", input=statements, cwd="/")

    def sql(self, *statements, **where):
        done = self.ask("\n".join(f"{statement};" for statement in statements), **where)
        assert done.returncode == 0, done.stderr
        return done.stdout

    def end(self):
        self.run("pg_ctl", "-D", self.data, "-m", "immediate", "stop")


@pytest.fixture(scope="module")
def server(tmp_path_factory):
    folder = tmp_path_factory.mktemp("postgresql")
    for parent in (folder, *folder.parents):
        if os.stat(parent).st_uid == os.getuid() and parent != pathlib.Path("/"):
            parent.chmod(parent.stat().st_mode | 0o055)  # so that the server's user can pass through
    running = Server(folder)
    running.sql("CREATE TABLE labels AS SELECT n, 'Zoë' || chr(10) || n || ' n main street apt 4' || "
                f"chr(10) || 'austin, texas 78701' AS label FROM generate_series(1, {MILLION}) n",
                "ANALYZE labels")
    yield running
    running.end()


LABEL = "E'Jane Doe\\n12 n main street apt 4\\naustin, texas 78701'"


@pytest.mark.parametrize("statement, printed", [
    (f"SELECT (postwright_parse({LABEL})).street_line", "12 N MAIN ST APT 4"),
    ("SELECT (postwright_parse('12 peña st, austin tx 78701')).street", "PEÑA"),
    ("SELECT postwright_parse('ring twice') IS NULL, postwright_parse(NULL) IS NULL", "t|t"),
    (f"SELECT text FROM postwright_fix({LABEL})", "Jane Doe\n12 N MAIN ST APT 4\nAUSTIN TX 78701"),
    ("SELECT status, reason, text FROM postwright_fix('ring twice')",
     "turned-down|zip-missing|ring twice"),
    ("SELECT status, proposed <> '', zip FROM "
     "postwright_fix('2870 South West Temple, Madison WI 53703')", "to-decide|t|"),
    # The process's locale is C before and after: PostgreSQL's own upper() leaves the letter alone.
    ("SELECT upper('peña'), postwright_parse('') IS NULL, upper('peña')", "PEñA|t|PEñA"),
    ("SELECT provolatile, proparallel FROM pg_proc WHERE proname LIKE 'postwright%' "
     "ORDER BY proname", "s|s\ni|s"),
])
def test_answers(server, statement, printed):
    assert server.sql(statement) == printed + "\n"


@pytest.mark.parametrize("statement, problem", [
    ("SELECT postwright_parse(repeat('x', 17000000))", "a label has at most 16 MiB"),
    ("SET postwright.bases = '/nowhere.base'; SELECT postwright_fix('a')", "/nowhere.base"),
    ("SELECT postwright_parse(''); SET ROLE guest; SET postwright.bases = ''", "permission denied to set parameter"),
    ("SELECT postwright_fix(1)", "function postwright_fix(integer) does not exist"),
])
def test_tells_what_is_wrong(server, statement, problem):
    server.sql("DROP ROLE IF EXISTS guest", "CREATE ROLE guest")
    done = server.ask(statement + ";")
    assert done.returncode != 0 and problem in done.stderr


def test_takes_other_encodings(server):
    for encoding in ("LATIN1", "SQL_ASCII"):
        server.sql(f"CREATE DATABASE {encoding} ENCODING '{encoding}' TEMPLATE template0")
        ask = "SET client_encoding = 'UTF8'; SELECT (postwright_parse('12 peña st, austin tx 78701')).street"
        assert server.sql("CREATE EXTENSION postwright", ask, database=encoding.lower()) == "PEÑA\n"
    done = server.ask(r"SELECT postwright_parse(E'\xF1')", database="sql_ascii")
    assert "invalid byte sequence" in done.stderr


def test_answers_from_a_base(server, tmp_path):
    town = (ROOT / "data/sample/town.csv").read_text().replace("MILLRACE,OH,00011", "AUSTIN,TX,78701")
    csv, base = tmp_path / "town.csv", server.tree / "town.base"
    csv.write_text("".join(f"{row}\n" for row in town.splitlines() if ",000" not in row))
    subprocess.run([BIN / "postwright-base", "import", "--quiet", base, csv, "--source", "town"],
                   check=True)
    base.chmod(0o644)
    ask = "SELECT confirmation, zip FROM postwright_fix('12 n main st, austin tx 78701')"
    assert server.sql(f"SET postwright.bases = ' {base} '", ask, "SET postwright.bases = ''",
                      ask) == "confirmed|78701-1201\nform-only|78701\n"


FIXED = "SELECT count(*) FROM labels, LATERAL postwright_fix(label) p WHERE p.status = 'fixed'"


def test_reads_and_corrects_a_million_in_parallel(server):
    read = ("SELECT count(*) FROM labels, LATERAL postwright_parse(label) p "
            "WHERE p.street_line = n || ' N MAIN ST APT 4' AND p.prefix = 'ZOË'")
    fixed = f"{FIXED} AND p.text = 'Zoë' || chr(10) || n || ' N MAIN ST APT 4' || chr(10) || 'AUSTIN TX 78701'"
    for what, statement in (("read", read), ("corrected", fixed)):
        plan = server.sql(f"EXPLAIN {statement}")
        assert "Gather" in plan and "Parallel Seq Scan on labels" in plan
        began = time.monotonic()
        assert server.sql(statement) == f"{MILLION}\n"
        print(f"\na million labels {what} in {time.monotonic() - began:.1f} s")


@contextlib.contextmanager
def correcting(server, workers=2):
    """psql and the server process that it has in the middle of a statement which takes minutes."""
    user = ["runuser", "-u", "postgres", "--"] if os.getuid() == 0 else []
    with subprocess.Popen([*user, "psql", "-h", server.sockets, "-U", "postgres", "-X", "-q", "-A", "-t",
                           "-c", f"SET max_parallel_workers_per_gather = {workers}", "-c", FIXED,
                           "-c", "SELECT postwright_parse('') IS NULL"],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, cwd="/") as psql:
        rows = []
        while len(rows) < 1 + workers:
            rows = server.sql("SELECT pid FROM pg_stat_activity WHERE query LIKE 'SELECT count(*) FROM labels%' "
                              "AND state = 'active' ORDER BY leader_pid NULLS FIRST").split()
        time.sleep(1)
        yield psql, rows[0]


@pytest.mark.parametrize("workers", [0, 2])
def test_is_cancelled_and_goes_on(server, workers):
    with correcting(server, workers) as (psql, pid):
        began = time.monotonic()
        assert server.sql(f"SELECT pg_cancel_backend({pid})") == "t\n"
        said, errors = psql.communicate(timeout=20)  # a tenth of what the statement takes
        print(f"\nwith {workers} workers cancelled in {time.monotonic() - began:.2f} s")
    assert "canceling statement due to user request" in errors and said == "t\n"
    done = server.ask(f"SET statement_timeout = 300; {FIXED};")
    assert "canceling statement due to statement timeout" in done.stderr


def test_a_killed_backend_takes_nobody_along(server):
    """PostgreSQL itself starts anew when a process of it dies; what was committed is there."""
    with correcting(server) as (_, pid):
        os.kill(int(pid), signal.SIGKILL)
    while server.ask("SELECT 1;").returncode != 0:
        time.sleep(0.1)
    assert server.sql("SELECT count(*) FROM labels") == f"{MILLION}\n"
